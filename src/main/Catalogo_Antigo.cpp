#include "main/Catalogo_Antigo.h"

#include "controls/Andamento.h"
#include "controls/Dialogs.h"
#include "jet/CatalogueSwap.h"
#include "jet/JetConversion.h"
#include "jet/JetFile.h"
#include "jet/JetReader.h"
#include "runtime/RuntimeError.h"

#include <QFileInfo>

namespace {

/// @return what no new catalogue gets, so that it is known before the answer; "" also for a file
/// of which not even the tables can be read: the conversion will tell
QString Texto_Deixado(const QString& caminho)
{
    try {
        const QString deixado = JetConversion::Preview(caminho).ToText();
        return deixado.isEmpty() ? QString()
                                 : u"\n\nO Melodario não conhece, e por isso não leva para o "
                                   "catálogo novo: "_qs +
                                       deixado + u'.';
    } catch (const RuntimeError&) {
        return {};
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

QString Texto_Pergunta(const QString& caminho, const QString& guardado)
{
    return u"O banco de dados '"_qs + QFileInfo(caminho).fileName() +
           u"' está no formato antigo (Jet). Deseja convertê-lo agora?\n\nO arquivo antigo "
           u"continua na mesma pasta, sem nenhuma alteração, com o nome '" +
           QFileInfo(guardado).fileName() + u"'." + Texto_Deixado(caminho);
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
    if (!Pergunta(pai, Texto_Pergunta(catalogo, guardado)))
        return;
    // The main form is not shown yet: the window stands alone.
    Andamento andamento(nullptr, u"Melodario"_qs, u"Convertendo o catálogo..."_qs);
    JetConversion::ConvertInPlace(catalogo, guardado,
                                  [&andamento](double parte) { andamento.Avanca(parte); });
}
