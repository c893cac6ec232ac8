#include "main/Catalogo_Antigo.h"

#include "controls/Andamento.h"
#include "controls/Dialogs.h"
#include "jet/CatalogueSwap.h"
#include "jet/JetConversion.h"
#include "jet/JetFile.h"
#include "jet/JetReader.h"
#include "main/Texto_Deixado.h"
#include "runtime/RuntimeError.h"

#include <QFileInfo>

namespace {

/// @return what no new catalogue gets; nothing also for a file of which not even the tables can be
/// read: the conversion will tell
std::optional<JetConversion::LeftBehind> Ve_Antes(const QString& caminho)
{
    try {
        return JetConversion::Preview(caminho);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// Said before the failure message, which knows nothing of formats.
QString Texto_Recusa(const QString& caminho)
{
    return u"O banco de dados '"_qs + QFileInfo(caminho).fileName() +
           u"' está no formato antigo (Jet) e não pode ser convertido aqui. "_qs +
           JetReader::WhyMissing() +
           u"\n\nConverta-o uma vez lá: o catálogo convertido serve em todos os sistemas."_qs;
}

QString Texto_Pergunta(const QString& caminho, const QString& guardado, const QString& deixado)
{
    return u"O banco de dados '"_qs + QFileInfo(caminho).fileName() +
           u"' está no formato antigo (Jet). Deseja convertê-lo agora?\n\nO arquivo antigo "
           u"continua na mesma pasta, sem nenhuma alteração, com o nome '" +
           QFileInfo(guardado).fileName() + u"'." + deixado;
}

/// @return what stayed behind
JetConversion::LeftBehind Converte(const QString& catalogo, const QString& guardado)
{
    // The main form is not shown yet: the window stands alone.
    Andamento andamento(nullptr, u"Melodario"_qs, u"Convertendo o catálogo..."_qs);
    return JetConversion::ConvertInPlace(catalogo, guardado,
                                         [&andamento](double parte) { andamento.Avanca(parte); })
        .left;
}

} // namespace

void Funcoes::Oferece_Conversao(QWidget* pai, const QString& caminho)
{
    if (!JetFile::Recognises(caminho))
        return;
    if (!JetReader::IsThere()) {
        Mostra_Mensagem(pai, Texto_Recusa(caminho), Icone::Exclamacao);
        return;
    }
    const QString catalogo = CatalogueSwap::RealPath(caminho);
    const QString guardado = CatalogueSwap::KeptPath(catalogo);
    const auto visto = Ve_Antes(catalogo);
    if (!Pergunta(pai, Texto_Pergunta(catalogo, guardado, Texto_Deixado::Antes(visto))))
        return;
    const JetConversion::LeftBehind deixado = Converte(catalogo, guardado);
    const bool dito = deixado.IsEmpty() || (Texto_Deixado::Diz_Tudo(visto) && *visto == deixado);
    if (!dito)
        Mostra_Mensagem(pai, Texto_Deixado::Depois(deixado, QFileInfo(guardado).fileName()),
                        Icone::Informacao);
}
