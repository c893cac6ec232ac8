#include "CatalogoAntigo.h"

#include "jet/CatalogueSwap.h"
#include "jet/JetConversion.h"
#include "jet/JetFields.h"
#include "jet/JetFile.h"
#include "jet/JetReader.h"
#include "runtime/RuntimeError.h"
#include "store/Connection.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <stdexcept>

namespace {

/// @return what the conversion of a file fails with; "" when it does not
QString FailureOf(const QString& source, const QString& target)
{
    try {
        JetConversion::Convert(source, target, false, {});
        return {};
    } catch (const RuntimeError& error) {
        return error.WhatFailed();
    }
}

QByteArray Wide(const char* text)
{
    QByteArray wide;
    for (; *text != '\0'; ++text)
        wide += QByteArray(1, *text) + '\0';
    return wide;
}

/// @return where the definition of a table with that many rows begins
qsizetype DefinitionWith(const QByteArray& file, char rows)
{
    constexpr qsizetype Page = 4096;
    constexpr qsizetype RowsAt = 16;
    for (qsizetype page = 0; page < file.size(); page += Page) {
        if (file[page] == 2 &&
            file.mid(page + RowsAt, 4) == QByteArray(1, rows) + QByteArray(3, '\0'))
            return page;
    }
    qFatal("no such table");
}

} // namespace

/// The conversion of a catalogue in the older format, without the program around it.
class tst_jet_conversion : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void everyRowComesOutAsItMust();
    void newRowsGoOnAfterTheLastNumberGiven();
    void whatTheProgramDoesNotKnowIsLeftAndNamed();
    void theOldFileStaysAsItIs();
    void progressGoesFromNothingToAll();
    void whoeverIsInterruptedLeavesNothing_data();
    void whoeverIsInterruptedLeavesNothing();
    void tryingItOutWritesNothing();
    void aDraftOfAnInterruptedConversionIsReplaced();
    void twoConversionsAtOnceDoNotMix();
    void aFileThatCameUpMeanwhileIsKept();
    void whatAnInterruptedWriterLeftKeepsTheOldOneInItsPlace();
    void everyTableIsNeeded_data();
    void everyTableIsNeeded();
    void everyColumnIsNeeded();
    void lostAndDoubledRowsAreAFailure_data();
    void lostAndDoubledRowsAreAFailure();
    void twoRowsWithOneIdentifierAreAFailure();
    void foreignFilesAreAFailure_data();
    void foreignFilesAreAFailure();
    void theOlderFormatIsToldByItsFirstBytes_data();
    void theOlderFormatIsToldByItsFirstBytes();
    void daysCountFromTheLastButOneOf1899_data();
    void daysCountFromTheLastButOneOf1899();

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }
    QString Put(const QByteArray& content) const
    {
        QFile file(Path(u"antigo.mdb"_qs));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("not written");
        return file.fileName();
    }
    QStringList Files() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    /// Nothing is left behind.
    void ExpectFailure(const QByteArray& content, const QString& words)
    {
        const QString source = Put(content);
        const QString failure = FailureOf(source, Path(u"novo.mdb"_qs));
        QVERIFY2(failure.contains(words), qPrintable(failure));
        QCOMPARE(Files(), QStringList{u"antigo.mdb"_qs});
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_jet_conversion::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_jet_conversion::everyRowComesOutAsItMust()
{
    const QString target = Path(u"novo.mdb"_qs);
    const auto report = JetConversion::Convert(CatalogoAntigo::Caminho(), target, false, {});
    QCOMPARE(CatalogoAntigo::Diferencas(target), QStringList());
    QCOMPARE(CatalogoAntigo::Linhas(target), CatalogoAntigo::LinhasEsperadas());
    QCOMPARE(CatalogoAntigo::Estado(target), u"sound"_qs);
    QCOMPARE(report.songs, 59);
    QCOMPARE(report.themes, 19);
    QCOMPARE(report.setlists, 8);
    QCOMPARE(Files(), QStringList{u"novo.mdb"_qs});
}

void tst_jet_conversion::newRowsGoOnAfterTheLastNumberGiven()
{
    const QString target = Path(u"novo.mdb"_qs);
    JetConversion::Convert(CatalogoAntigo::Caminho(), target, false, {});
    Connection connection;
    connection.Open(TestCatalogue::ConnectionString(target));
    connection.Execute(u"INSERT INTO MUSICA (TITULO) VALUES ('Nova')"_qs);
    connection.Execute(u"INSERT INTO TEMA (DESCRICAO) VALUES ('Novo')"_qs);
    connection.Execute(u"INSERT INTO LISTA (NOME) VALUES ('Nova')"_qs);
    connection.Close();
    PlainSqlite database(target);
    QCOMPARE(database.Rows(u"SELECT MAX(ID), CONTADOR FROM MUSICA WHERE TITULO = 'Nova'"_qs),
             (QList<QStringList>{{u"76"_qs, u"0"_qs}}));
    QCOMPARE(database.Rows(u"SELECT MAX(ID) FROM TEMA"_qs), (QList<QStringList>{{u"26"_qs}}));
    QCOMPARE(database.Rows(u"SELECT MAX(ID) FROM LISTA"_qs), (QList<QStringList>{{u"14"_qs}}));
}

void tst_jet_conversion::whatTheProgramDoesNotKnowIsLeftAndNamed()
{
    const auto report = JetConversion::TryOut(CatalogoAntigo::Caminho(), {});
    QCOMPARE(report.left.tables, QStringList{u"INTERPRETE"_qs});
    QCOMPARE(report.left.columns, QStringList{u"MUSICA.FAVORITA"_qs});
    QCOMPARE(report.left.ToText(), u"a tabela INTERPRETE; a coluna MUSICA.FAVORITA"_qs);
    QCOMPARE(JetConversion::Preview(CatalogoAntigo::Caminho()).ToText(), report.left.ToText());
    const JetConversion::LeftBehind many{{u"A"_qs, u"B"_qs}, {u"C.D"_qs, u"C.E"_qs, u"F.G"_qs}};
    QCOMPARE(many.ToText(), u"as tabelas A e B; as colunas C.D, C.E e F.G"_qs);
    QCOMPARE(JetConversion::LeftBehind().ToText(), QString());
}

void tst_jet_conversion::theOldFileStaysAsItIs()
{
    const QByteArray content = CatalogoAntigo::Conteudo();
    const QString source = Put(content);
    QVERIFY(QFile::setPermissions(source, QFile::ReadOwner));
    JetConversion::Convert(source, Path(u"novo.mdb"_qs), false, {});
    QFile old(source);
    QVERIFY(old.open(QIODevice::ReadOnly));
    QVERIFY(old.readAll() == content);
}

void tst_jet_conversion::progressGoesFromNothingToAll()
{
    QList<double> parts;
    JetConversion::TryOut(CatalogoAntigo::Caminho(), [&parts](double part) { parts.append(part); });
    QVERIFY(parts.size() > 2);
    QVERIFY(std::is_sorted(parts.begin(), parts.end()));
    QVERIFY(parts.first() >= 0);
    QCOMPARE(parts.last(), 1.0);
}

void tst_jet_conversion::whoeverIsInterruptedLeavesNothing_data()
{
    QTest::addColumn<double>("part");
    QTest::newRow("at the beginning") << 0.0;
    QTest::newRow("in the first half") << 0.25;
    QTest::newRow("while it is checked") << 0.75;
}

/// Progress is where a user's wish to end is noticed.
void tst_jet_conversion::whoeverIsInterruptedLeavesNothing()
{
    QFETCH(double, part);
    QVERIFY(QDir().mkdir(Path(u"sozinho"_qs)));
    const auto interrupt = [part](double done) {
        if (done >= part)
            throw std::logic_error("interrupted");
    };
    QVERIFY_THROWS_EXCEPTION(std::logic_error, JetConversion::Convert(CatalogoAntigo::Caminho(),
                                                                      Path(u"sozinho/novo.mdb"_qs),
                                                                      false, interrupt));
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(Path(u"sozinho"_qs)).entryList(all), QStringList());
}

void tst_jet_conversion::tryingItOutWritesNothing()
{
    const QString source = Put(CatalogoAntigo::Conteudo());
    QCOMPARE(JetConversion::TryOut(source, {}).songs, 59);
    QCOMPARE(Files(), QStringList{u"antigo.mdb"_qs});
}

void tst_jet_conversion::aDraftOfAnInterruptedConversionIsReplaced()
{
    const QString target = Path(u"novo.mdb"_qs);
    QFile half(CatalogueSwap::DraftPath(target));
    QVERIFY(half.open(QIODevice::WriteOnly) && half.write("half a catalogue") > 0);
    half.close();
    JetConversion::Convert(CatalogoAntigo::Caminho(), target, false, {});
    QCOMPARE(CatalogoAntigo::Diferencas(target), QStringList());
    QCOMPARE(Files(), QStringList{u"novo.mdb"_qs});
}

void tst_jet_conversion::twoConversionsAtOnceDoNotMix()
{
    const QString target = Path(u"novo.mdb"_qs);
    QString failure;
    // The second one begins while the first one is half through.
    JetConversion::Convert(CatalogoAntigo::Caminho(), target, false, [&](double part) {
        if (part > 0.4 && failure.isEmpty())
            failure = FailureOf(CatalogoAntigo::Caminho(), target);
    });
    QCOMPARE(failure, u"O catálogo está sendo convertido por outro programa."_qs);
    QCOMPARE(CatalogoAntigo::Diferencas(target), QStringList());
    QCOMPARE(Files(), QStringList{u"novo.mdb"_qs});
}

void tst_jet_conversion::aFileThatCameUpMeanwhileIsKept()
{
    const QString target = Path(u"novo.mdb"_qs);
    QFile other(target);
    QVERIFY(other.open(QIODevice::WriteOnly) && other.write("mine") == 4);
    other.close();
    QVERIFY(!FailureOf(CatalogoAntigo::Caminho(), target).isEmpty());
    QVERIFY(other.open(QIODevice::ReadOnly));
    QCOMPARE(other.readAll(), QByteArray("mine"));
    QCOMPARE(Files(), QStringList{u"novo.mdb"_qs});
}

void tst_jet_conversion::whatAnInterruptedWriterLeftKeepsTheOldOneInItsPlace()
{
    const QString path = Put(CatalogoAntigo::Conteudo());
    QFile left(path + u"-journal");
    QVERIFY(left.open(QIODevice::WriteOnly) && left.write("left") == 4);
    left.close();
    bool begun = false;
    const auto progress = [&begun](double) { begun = true; };
    const QString kept = CatalogueSwap::KeptPath(path);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, JetConversion::ConvertInPlace(path, kept, progress));
    QVERIFY(!begun); // it is known before the long work
    QCOMPARE(Files(), (QStringList{u"antigo.mdb"_qs, u"antigo.mdb-journal"_qs}));
    QVERIFY(left.remove());
    JetConversion::ConvertInPlace(path, kept, {});
    QCOMPARE(CatalogoAntigo::Diferencas(path), QStringList());
}

void tst_jet_conversion::everyTableIsNeeded_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name :
         {"MUSICA", "TEMA", "TEMA_MUSICA", "LISTA", "LISTA_MUSICA", "TOM", "Variacao"})
        QTest::newRow(name) << QByteArray(name);
}

void tst_jet_conversion::everyTableIsNeeded()
{
    QFETCH(QByteArray, name);
    ExpectFailure(CatalogoAntigo::SemTabela(name.constData()),
                  u"Falta no catálogo antigo a tabela "_qs + QString::fromLatin1(name).toUpper() +
                      u'.');
}

void tst_jet_conversion::everyColumnIsNeeded()
{
    QByteArray content = CatalogoAntigo::Conteudo();
    QVERIFY(content.contains(Wide("CONTADOR")));
    content.replace(Wide("CONTADOR"), Wide("CONTADOX"));
    ExpectFailure(content, u"Falta no catálogo antigo a coluna MUSICA.CONTADOR."_qs);
}

void tst_jet_conversion::lostAndDoubledRowsAreAFailure_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("said");
    QTest::newRow("a song less than there should be") << 59 << 60;
    QTest::newRow("a song more") << 59 << 58;
    QTest::newRow("a link less") << 85 << 86;
    QTest::newRow("a link more") << 85 << 0;
}

void tst_jet_conversion::lostAndDoubledRowsAreAFailure()
{
    QFETCH(int, rows);
    QFETCH(int, said);
    constexpr qsizetype RowsAt = 16;
    QByteArray content = CatalogoAntigo::Conteudo();
    content[DefinitionWith(content, static_cast<char>(rows)) + RowsAt] = static_cast<char>(said);
    ExpectFailure(content, u"O catálogo antigo está danificado."_qs);
}

void tst_jet_conversion::twoRowsWithOneIdentifierAreAFailure()
{
    // The song 2 becomes another song 3: its row begins with the number of its columns, its
    // category and its ID.
    QByteArray content = CatalogoAntigo::Conteudo();
    const QByteArray row("\x0A\0\2\0\2\0\0\0", 8);
    constexpr qsizetype IdAt = 4;
    int changed = 0;
    for (qsizetype at = content.indexOf(row); at >= 0; at = content.indexOf(row, at + 1)) {
        content[at + IdAt] = 3;
        ++changed;
    }
    QCOMPARE(changed, 1);
    const QString failure = FailureOf(Put(content), Path(u"novo.mdb"_qs));
    QVERIFY(!failure.isEmpty());
    QCOMPARE(Files(), QStringList{u"antigo.mdb"_qs});
}

void tst_jet_conversion::foreignFilesAreAFailure_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray whole = CatalogoAntigo::Conteudo();
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a text") << QByteArray("só um texto\n").repeated(1000);
    QTest::newRow("nothing behind the name") << whole.first(20);
    QTest::newRow("the first page alone") << whole.first(4096);
    QTest::newRow("zeros behind the name") << whole.first(20) + QByteArray(100000, '\0');
    QTest::newRow("the first half") << whole.first(whole.size() / 2);
    QTest::newRow("without the last page") << whole.chopped(4096);
    QByteArray unknown = whole;
    unknown[0x14] = 77;
    QTest::newRow("a version that nobody knows") << unknown;
}

void tst_jet_conversion::foreignFilesAreAFailure()
{
    QFETCH(QByteArray, content);
    const QString failure = FailureOf(Put(content), Path(u"novo.mdb"_qs));
    QVERIFY(!failure.isEmpty());
    QCOMPARE(Files(), QStringList{u"antigo.mdb"_qs});
}

void tst_jet_conversion::theOlderFormatIsToldByItsFirstBytes_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("older");
    const QByteArray jet("\0\1\0\0Standard Jet DB\0", 20);
    QTest::newRow("Jet") << jet + QByteArray(100, '\0') << true;
    QTest::newRow("the name alone") << jet << true;
    QTest::newRow("its younger brother") << QByteArray("\0\1\0\0Standard ACE DB\0", 20) << true;
    QTest::newRow("a part of the name") << jet.first(12) << false;
    QTest::newRow("the name at another place") << QByteArray("Standard Jet DB") << false;
    QTest::newRow("SQLite") << QByteArray("SQLite format 3\0", 16) << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void tst_jet_conversion::theOlderFormatIsToldByItsFirstBytes()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, older);
    QCOMPARE(JetFile::Recognises(Put(content)), older);
    QVERIFY(!JetFile::Recognises(Path(u"nada.mdb"_qs)));
    QVERIFY(!JetFile::Recognises(m_folder->path()));
}

void tst_jet_conversion::daysCountFromTheLastButOneOf1899_data()
{
    QTest::addColumn<double>("days");
    QTest::addColumn<QDate>("day");
    QTest::newRow("zero") << 0.0 << QDate(1899, 12, 30);
    QTest::newRow("evening of day zero") << 0.75 << QDate(1899, 12, 30);
    QTest::newRow("six in the morning of the day before") << -1.25 << QDate(1899, 12, 29);
    QTest::newRow("a moment before the next day") << 39623.999999 << QDate(2008, 6, 24);
    QTest::newRow("the first day") << -657434.0 << QDate(100, 1, 1);
    QTest::newRow("the last day, at night") << 2958465.99 << QDate(9999, 12, 31);
    QTest::newRow("before the first day") << -657435.0 << QDate();
    QTest::newRow("after the last day") << 2958466.0 << QDate();
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << QDate();
    QTest::newRow("without end") << -std::numeric_limits<double>::infinity() << QDate();
    QTest::newRow("larger than any") << 1e300 << QDate();
}

void tst_jet_conversion::daysCountFromTheLastButOneOf1899()
{
    QFETCH(double, days);
    QFETCH(QDate, day);
    QCOMPARE(JetFields::DayOf(days), day);
}

QTEST_GUILESS_MAIN(tst_jet_conversion)
#include "tst_jet_conversion.moc"
