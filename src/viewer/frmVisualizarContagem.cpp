// The play count: ten seconds are shown going by, and with the eleventh tick the song has been
// played, once in a run of the program.

#include "viewer/frmVisualizar.h"

#include "controls/Handler.h"
#include "runtime/Number.h"
#include "store/Connection.h"
#include "ui_frmVisualizar.h"
#include "viewer/Musicas_Contadas.h"

#include <QTimer>

using namespace Funcoes;

namespace {

constexpr std::int16_t SegundosAteContar = 10;

} // namespace

void frmVisualizar::Prepara_Contagem()
{
    // The seconds that go by cleanly between two attempts to count say nothing of the attempts: the
    // same failure to count is not shown again every eleven seconds.
    connect(tmrContador, &QTimer::timeout, this,
            [this, segundo = Unattended(), contagem = Unattended()]() mutable {
                Unattended& tique = Contagem != 0 ? segundo : contagem;
                tique.Run([this] { tmrContador_Timer(); });
            });
}

void frmVisualizar::tmrContador_Timer()
{
    if (Contagem != 0) {
        Contagem = Number::AddInteger(Contagem, -1);
        ui->lblCont->setText(Number::ToText(Contagem));
    } else {
        Contagem = SegundosAteContar;
        Conta_Musica(ID_Musica);
        tmrContador->stop();
    }
    ui->lblCont->setVisible(tmrContador->isActive());
}

void frmVisualizar::Conta_Musica(double id)
{
    const QString texto = Number::ToText(id);
    if (QString(u","_qs + Musicas_Contadas).contains(QString(u","_qs + texto + u","_qs)))
        return;
    const QString excluidas = Musicas_Contadas.isEmpty() ? u"0"_qs : Musicas_Contadas.chopped(1);
    SQL = u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1"
          " WHERE ID = 0"_qs +
          texto + u" AND ID NOT IN ("_qs + excluidas + u")"_qs;
    Conexao.Execute(SQL);
    Conexao.CommitBatch();
    // Only what was written for good counts: after a failure the next countdown tries again.
    Musicas_Contadas += texto + u","_qs;
}
