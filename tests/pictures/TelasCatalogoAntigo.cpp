#include "pictures/TelasCatalogoAntigo.h"

#include "controls/Andamento.h"
#include "controls/Dialogs.h"
#include "jet/CatalogoAntigo.h"
#include "main/Catalogo_Antigo.h"
#include "main/Texto_Deixado.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

namespace {

/// Takes a picture of the next box and presses one of its buttons.
class NextBox
{
public:
    NextBox(const std::function<void(const QString& name)>& save, const QString& name,
            QMessageBox::StandardButton button)
    {
        QObject::connect(&m_watch, &QTimer::timeout, &m_watch, [this, &save, name, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            m_watch.stop();
            save(name);
            box->button(button)->click();
        });
        m_watch.start(0);
    }

private:
    QTimer m_watch;
};

JetConversion::LeftBehind MuchLeftBehind()
{
    JetConversion::LeftBehind left{{QStringLiteral("INTERPRETE")},
                                   {QStringLiteral("MUSICA.FAVORITA")}};
    for (int i = 1; i <= 20; ++i)
        left.columns += QStringLiteral("MUSICA.MARCA%1").arg(i);
    return left;
}

} // namespace

void ShowOldCatalogue(const std::function<void(const QString& name)>& save)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Melodario.mdb"));
    if (!QFile::copy(CatalogoAntigo::Caminho(), path))
        qFatal("no old catalogue");
    {
        const NextBox question(save, QStringLiteral("catalogo-antigo-pergunta"), QMessageBox::No);
        Funcoes::Oferece_Conversao(nullptr, path);
    }
    {
        const NextBox report(save, QStringLiteral("catalogo-antigo-relatorio"), QMessageBox::Ok);
        Funcoes::Mostra_Mensagem(
            nullptr,
            Texto_Deixado::Depois(MuchLeftBehind(),
                                  QStringLiteral("Melodario (formato antigo).mdb")),
            Icone::Informacao);
    }

    constexpr int LongEnoughMs = 600;
    Andamento progress(nullptr, QStringLiteral("Melodario"),
                       QStringLiteral("Convertendo o catálogo..."));
    QThread::msleep(LongEnoughMs);
    constexpr double Part = 0.4;
    progress.Avanca(Part);
    save(QStringLiteral("catalogo-antigo-andamento"));
}
