// Reading a song and the note names into the viewer's state.

#include "viewer/frmVisualizar.h"

#include "chords/Notas.h"
#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "store/Connection.h"
#include "store/Preenche.h"

#include <QTimer>

using namespace Funcoes;

namespace {

constexpr std::int16_t SegundosAteContar = 10;

} // namespace

void frmVisualizar::Carrega_Musica()
{
    SQL = u"SELECT * FROM MUSICA WHERE ID = 0"_qs + Number::ToText(ID_Musica);
    Consulta = Conexao.Execute(SQL);
    const Recordset musica = Consulta;
    // A song that is gone leaves the state of the one before it.
    if (musica.Eof()) {
        Consulta.Close();
        Carrega_Tons(Tom);
        Tom_Atual = Tom_Base;
        return;
    }
    const QString temas = Busca_Temas_Musica(ID_Musica);
    const QString tom = musica.Fields(u"TOM").ToText();
    Carrega_Tons(tom);
    // Nothing fails from here on: a song is shown, saved and counted as itself or not at all.
    Tom_Atual = Tom_Base;
    Titulo = musica.Fields(u"TITULO").ToText();
    Referencia = musica.Fields(u"REFERENCIA").ToText();
    Musica[1] = musica.Fields(u"MUSICA").ToText();
    Musica[2] = musica.Fields(u"MUSICA2").ToText();
    if (Musica[2].isEmpty())
        Musica[2] = Musica[1];
    Tom = tom;
    Variacao = musica.Fields(u"VARIACAO").ToText();
    Temas = temas;
    Contagem = SegundosAteContar;
    if (!tmrContador->isActive()) // enabling it anew must not restart a second under way
        tmrContador->start();
}

/// Reads the note names and finds the index of a key, Tom_Base, which only a whole table changes.
void frmVisualizar::Carrega_Tons(const QString& tom)
{
    SQL = u"SELECT * FROM TOM ORDER BY ORDEM"_qs;
    Consulta = Conexao.Execute(SQL);
    Notas[0] = u"?"_qs;
    Notas_Mais[0] = u"?"_qs;
    std::int16_t base = Tom_Base; // an unknown key keeps the index of the song before
    for (std::int16_t i = 1; !Consulta.Eof(); ++i, Consulta.MoveNext()) {
        const auto indice = static_cast<std::size_t>(i);
        if (indice >= Notas.size())
            RuntimeError::ThrowSubscriptOutOfRange();
        Notas[indice] = Consulta.Fields(u"NOTA").ToText();
        Notas_Mais[indice] = Consulta.Fields(u"MAIS").ToText();
        if (Notas[indice] == tom)
            base = i;
        if (Notas_Mais[indice] == tom)
            base = i;
    }
    Consulta.Close();
    Tom_Base = base;
}
