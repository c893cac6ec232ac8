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
    // A song that is gone leaves the state of the one before it.
    if (!Consulta.Eof()) {
        Titulo = Consulta.Fields(u"TITULO").ToText();
        Referencia = Consulta.Fields(u"REFERENCIA").ToText();
        Musica[1] = Consulta.Fields(u"MUSICA").ToText();
        Musica[2] = Consulta.Fields(u"MUSICA2").ToText();
        if (Musica[2].isEmpty())
            Musica[2] = Musica[1];
        Tom = Consulta.Fields(u"TOM").ToText();
        Variacao = Consulta.Fields(u"VARIACAO").ToText();
        Temas = Busca_Temas_Musica(ID_Musica);
        Contagem = SegundosAteContar;
        if (!tmrContador->isActive()) // enabling it anew must not restart a second under way
            tmrContador->start();
    }
    Consulta.Close();

    Carrega_Tons();
    Tom_Atual = Tom_Base;
}

void frmVisualizar::Carrega_Tons()
{
    SQL = u"SELECT * FROM TOM ORDER BY ORDEM"_qs;
    Consulta = Conexao.Execute(SQL);
    Notas[0] = u"?"_qs;
    Notas_Mais[0] = u"?"_qs;
    // Tom_Base is not cleared first: an unknown key keeps the index of the song before.
    for (std::int16_t i = 1; !Consulta.Eof(); ++i, Consulta.MoveNext()) {
        const auto indice = static_cast<std::size_t>(i);
        if (indice >= Notas.size())
            RuntimeError::ThrowSubscriptOutOfRange();
        Notas[indice] = Consulta.Fields(u"NOTA").ToText();
        Notas_Mais[indice] = Consulta.Fields(u"MAIS").ToText();
        if (Notas[indice] == Tom)
            Tom_Base = i;
        if (Notas_Mais[indice] == Tom)
            Tom_Base = i;
    }
    Consulta.Close();
}
