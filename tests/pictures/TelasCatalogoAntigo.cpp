#include "pictures/TelasCatalogoAntigo.h"

#include "controls/Andamento.h"
#include "jet/CatalogoAntigo.h"
#include "main/Catalogo_Antigo.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

void ShowOldCatalogue(const std::function<void(const QString& name)>& save)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Melodario.mdb"));
    if (!QFile::copy(CatalogoAntigo::Caminho(), path))
        qFatal("no old catalogue");
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&save, &watch] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        watch.stop();
        save(QStringLiteral("catalogo-antigo-pergunta"));
        box->button(QMessageBox::No)->click();
    });
    watch.start(0);
    Funcoes::Oferece_Conversao(nullptr, path);

    constexpr int LongEnoughMs = 600;
    Andamento progress(nullptr, QStringLiteral("Melodario"),
                       QStringLiteral("Convertendo o catálogo..."));
    QThread::msleep(LongEnoughMs);
    constexpr double Part = 0.4;
    progress.Avanca(Part);
    save(QStringLiteral("catalogo-antigo-andamento"));
}
