#include "CatalogoAntigo.h"

#include "jet/JetFile.h"
#include "support/Interruption.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int BeforeTheSwap = 6; // boundaries

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
}

/// @return "" when there is a whole catalogue in the place, and the old one's bytes are somewhere
QString WhatIsLost(const QString& folder)
{
    const QString path = folder + u"/Melodario.mdb";
    const QString kept = folder + u"/Melodario (formato antigo).mdb";
    const QByteArray old = CatalogoAntigo::Conteudo();
    if (Content(path) == old)
        return {};
    if (Content(kept) != old)
        return u"the old catalogue"_qs;
    if (CatalogoAntigo::Estado(path) != u"sound")
        return u"the new catalogue: "_qs + CatalogoAntigo::Estado(path);
    return CatalogoAntigo::Diferencas(path).join(u'\n');
}

} // namespace

/// The program is killed at every boundary of a conversion.
class tst_conversao_interrompida : public QObject
{
    Q_OBJECT

private slots:
    void killsLeaveTheOldCatalogueOrTheNewOne();
};

void tst_conversao_interrompida::killsLeaveTheOldCatalogueOrTheNewOne()
{
    int old = 0;
    int converted = 0;
    bool stood = true;
    for (int boundary = 0; stood; ++boundary) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"Melodario.mdb"_qs);
        QVERIFY(QFile::copy(CatalogoAntigo::Caminho(), path));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        stood = Interruption::StartAndKill(QStringLiteral(INTERROMPIDA),
                                           {path, u"converte"_qs, QString::number(boundary)});
        QCOMPARE(WhatIsLost(folder.path()), QString());
        ++(JetFile::Recognises(path) ? old : converted);
        // What a kill left does not stand in the way of the next start.
        if (JetFile::Recognises(path)) {
            QVERIFY(!Interruption::StartAndKill(QStringLiteral(INTERROMPIDA),
                                                {path, u"converte"_qs, u"-1"_qs}));
            QVERIFY(!JetFile::Recognises(path));
            QCOMPARE(CatalogoAntigo::Diferencas(path), QStringList());
            QVERIFY(!QFile::exists(path + u".parcial"));
        }
    }
    qInfo("%d kills left the old catalogue, %d runs the new one", old, converted);
    QCOMPARE(old, BeforeTheSwap);
    QCOMPARE(converted, 2); // killed after the swap, and not killed
}

QTEST_GUILESS_MAIN(tst_conversao_interrompida)
#include "tst_conversao_interrompida.moc"
