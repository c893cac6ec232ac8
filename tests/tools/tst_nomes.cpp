#include "ToolRun.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

// What a user names is a file, also where its name means something else to a library that the
// commands are made of: ":memory:" and "file:" to SQLite, a colon in front to Qt.

namespace {

const QString Converte = QStringLiteral(MELODARIO_CONVERTE);
const QString Verifica = QStringLiteral(MELODARIO_VERIFICA);
const QString Cria = QStringLiteral(MELODARIO_CRIA);
const QString Dados = QStringLiteral(MELODARIO_SOURCE_DIR "/data");

QStringList Rows(const QString& path)
{
    QStringList titles;
    for (const QStringList& row : PlainSqlite(path).Rows(u"SELECT TITULO FROM MUSICA"_qs))
        titles += row.first();
    return titles;
}

} // namespace

class tst_nomes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() const { QDir::setCurrent(m_before); }
    void aCatalogueIsConverted_data() { Names(); }
    void aCatalogueIsConverted();
    void aCatalogueIsChecked_data() { Names(); }
    void aCatalogueIsChecked();
    void aRepairedCatalogueIsWritten_data() { Names(); }
    void aRepairedCatalogueIsWritten();
    void aNewCatalogueIsWritten_data() { Names(); }
    void aNewCatalogueIsWritten();
    void aSongInAFolderIsRead_data() { Names(); }
    void aSongInAFolderIsRead();
    void aSongIsReadAndWritten_data() { Names(); }
    void aSongIsReadAndWritten();

private:
    static void Names()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {":memory:", "file:a.mdb", "file:a.mdb?mode=memory", ":a.mdb"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    QString Path(const QString& name) const { return m_folder->path() + u'/' + name; }
    QStringList Files() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    void Put(const QString& name, const QByteArray& content) const
    {
        QFile file(Path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }

    const QString m_before = QDir::currentPath();
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestCatalogue> m_catalogue;
};

void tst_nomes::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_catalogue = std::make_unique<TestCatalogue>();
    m_catalogue->Link(m_catalogue->AddSong(u"Luar"_qs), m_catalogue->AddTheme(u"Natal"_qs));
    // Names without a folder: a program starts where its parent is.
    QVERIFY(QDir::setCurrent(m_folder->path()));
}

void tst_nomes::aCatalogueIsConverted()
{
    QFETCH(QString, name);
    QVERIFY(QFile::copy(m_catalogue->Path(), Path(name)));
    const Outcome outcome = RunTool(Converte, {name, u"novo.mld"_qs});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.out, u"novo.mld: 1 música(s) de 1 arquivo(s)\n"_qs);
    QCOMPARE(outcome.code, 0);
}

void tst_nomes::aCatalogueIsChecked()
{
    QFETCH(QString, name);
    QVERIFY(QFile::copy(m_catalogue->Path(), Path(name)));
    const Outcome outcome = RunTool(Verifica, {name});
    QCOMPARE(outcome.err, QString());
    QVERIFY2(outcome.out.endsWith(u"Tudo em ordem.\n"_qs), qPrintable(outcome.out));
    QCOMPARE(Files(), QStringList{name});
}

void tst_nomes::aRepairedCatalogueIsWritten()
{
    QFETCH(QString, name);
    const Outcome outcome = RunTool(Verifica, {m_catalogue->Path(), u"--reparar"_qs, name});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.code, 0);
    QCOMPARE(Files(), QStringList{name});
    QCOMPARE(Rows(Path(name)), QStringList{u"Luar"_qs});
}

void tst_nomes::aNewCatalogueIsWritten()
{
    QFETCH(QString, name);
    const Outcome outcome = RunTool(Cria, {u"--dados"_qs, Dados, name});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.code, 0);
    QCOMPARE(Files(), QStringList{name});
    QVERIFY(!Rows(Path(name)).isEmpty());
}

void tst_nomes::aSongInAFolderIsRead()
{
    QFETCH(QString, name);
    QVERIFY(QDir(m_folder->path()).mkdir(u"s"_qs));
    QVERIFY(QDir().mkdir(Path(u"s/" + name)));
    Put(u"s/" + name + u"/" + name + u".cho", "{title: Luar}\n[C]La\n");
    const Outcome outcome = RunTool(Converte, {u"s"_qs, u"novo.mld"_qs});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.out, u"novo.mld: 1 música(s) de 1 arquivo(s)\n"_qs);
}

void tst_nomes::aSongIsReadAndWritten()
{
    QFETCH(QString, name);
    Put(name, "{title: Luar}\n[C]La\n");
    for (const char* ending : {".mld", ".txt", ".cho", ".pdf", ".d/"}) {
        const QString target = name + QString::fromLatin1(ending);
        const Outcome outcome = RunTool(Converte, {name, target});
        QCOMPARE(outcome.err, QString());
        QCOMPARE(outcome.code, 0);
        QVERIFY2(QFileInfo::exists(Path(target)), qPrintable(target));
    }
    QCOMPARE(Files().size(), 6);
}

QTEST_GUILESS_MAIN(tst_nomes)
#include "tst_nomes.moc"
