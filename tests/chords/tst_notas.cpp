#include "chords/Notas.h"

#include "UsualNotes.h"
#include "chords/Cifra.h"
#include "runtime/RuntimeError.h"

#include <QTest>

using namespace Funcoes;

class tst_notas : public QObject
{
    Q_OBJECT

private slots:
    void init() { LoadUsualNotes(); }
    void lookup_data();
    void lookup();
    void lookupFindsTheFirstOfEqualNames();
    void emptyNameFindsAnEmptyEntry();
    void everyNoteByEveryOffset_data();
    void everyNoteByEveryOffset();
    void octavesGiveTheNoteItself();
    void unknownNoteVanishes();
    void offsetsOutOfRange_data();
    void offsetsOutOfRange();
    void thereAndBackAgain();
};

void tst_notas::lookup_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("table");
    QTest::newRow("C stands in both, found in the first") << u"C"_qs << 1 << u"1"_qs;
    QTest::newRow("Db stands in the second") << u"Db"_qs << 2 << u"2"_qs;
    QTest::newRow("C# stands in the first") << u"C#"_qs << 2 << u"1"_qs;
    QTest::newRow("B is the last") << u"B"_qs << 12 << u"1"_qs;
    QTest::newRow("H stands nowhere") << u"H"_qs << 0 << u""_qs;
    QTest::newRow("small letters are others") << u"c"_qs << 0 << u""_qs;
    QTest::newRow("small flat letter") << u"db"_qs << 0 << u""_qs;
    QTest::newRow("entry 0 is not searched") << u"?"_qs << 0 << u""_qs;
    QTest::newRow("a blank belongs to the name") << u"C "_qs << 0 << u""_qs;
    QTest::newRow("nothing") << u""_qs << 0 << u""_qs;
}

void tst_notas::lookup()
{
    QFETCH(QString, name);
    QFETCH(int, index);
    QFETCH(QString, table);
    QString found = u"before"_qs;
    QCOMPARE(int(Procura_Nota(name, found)), index);
    QCOMPARE(found, table);
}

void tst_notas::lookupFindsTheFirstOfEqualNames()
{
    Notas[4] = u"C"_qs;
    Notas_Mais[9] = u"Db"_qs;
    QCOMPARE(int(Procura_Nota(u"C", Tabela_Nota)), 1);
    QCOMPARE(int(Procura_Nota(u"Db", Tabela_Nota)), 2);
}

void tst_notas::emptyNameFindsAnEmptyEntry()
{
    Notas[12] = QString();
    QCOMPARE(int(Procura_Nota(u"", Tabela_Nota)), 12);
    QCOMPARE(Tabela_Nota, u"1"_qs);
}

void tst_notas::everyNoteByEveryOffset_data()
{
    QTest::addColumn<bool>("flats");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("offset");
    for (const bool flats : {false, true}) {
        for (int index = 1; index <= 12; ++index) {
            for (int offset = -12; offset <= 12; ++offset) {
                const auto& notes = flats ? Notas_Mais : Notas;
                LoadUsualNotes();
                const QString row =
                    u"%1 %2 %3"_qs.arg(flats ? u"flats"_qs : u"sharps"_qs,
                                       notes[std::size_t(index)], QString::number(offset));
                QTest::newRow(qPrintable(row)) << flats << index << offset;
            }
        }
    }
}

void tst_notas::everyNoteByEveryOffset()
{
    QFETCH(bool, flats);
    QFETCH(int, index);
    QFETCH(int, offset);
    const QStringList sharp = u"C C# D D# E F F# G G# A A# B"_qs.split(u' ');
    const QStringList flat = u"C Db D Eb E F Gb G Ab A Bb B"_qs.split(u' ');
    const QString written = (flats ? flat : sharp).at(index - 1);
    // A natural note is found among the sharps, so its neighbours are spelled with sharps.
    const bool spelledFlat = flats && written.size() == 2;
    const QString expected = (spelledFlat ? flat : sharp).at((index - 1 + offset + 24) % 12);

    const std::int16_t found = Procura_Nota(written, Tabela_Nota);
    QCOMPARE(int(found), index);
    QCOMPARE(Transpoe_Nota(found, std::int16_t(offset)), expected);

    const QString chord = u"(%1%2"_qs.arg(written, u"7)"_qs);
    const QString sheet = Monta_Cifra(chord, std::int16_t(offset), 0, true);
    const QString line = u"\\cf1\\b ("_qs + expected + u"7)\\cf0\\b0\r\n"_qs;
    QVERIFY2(sheet.contains(line), qPrintable(sheet));
    QCOMPARE(Tabela_Nota, spelledFlat ? u"2"_qs : u"1"_qs);
}

void tst_notas::octavesGiveTheNoteItself()
{
    for (const int offset : {-12, 0, 12}) {
        for (std::int16_t index = 1; index <= 12; ++index) {
            Tabela_Nota = u"1"_qs;
            QCOMPARE(Transpoe_Nota(index, std::int16_t(offset)), Notas[std::size_t(index)]);
            Tabela_Nota = u"2"_qs;
            QCOMPARE(Transpoe_Nota(index, std::int16_t(offset)), Notas_Mais[std::size_t(index)]);
        }
    }
}

void tst_notas::unknownNoteVanishes()
{
    Tabela_Nota = QString();
    QCOMPARE(Transpoe_Nota(0, 0), QString());
    QCOMPARE(Transpoe_Nota(5, 2), QString());
    QCOMPARE(Transpoe_Nota(0, 1000), QString());
}

void tst_notas::offsetsOutOfRange_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("error"); // 0: none
    QTest::addColumn<QString>("name");
    QTest::newRow("index 0 is the question mark an octave down") << 0 << -12 << 0 << u"?"_qs;
    QTest::newRow("one step below the octave") << 1 << -13 << 0 << u"?"_qs;
    QTest::newRow("two steps below the octave")
        << 1 << -14 << int(RuntimeError::SubscriptOutOfRange) << QString();
    QTest::newRow("an octave and a fourth up") << 7 << 17 << 0 << u"B"_qs;
    QTest::newRow("two octaves up")
        << 1 << 24 << int(RuntimeError::SubscriptOutOfRange) << QString();
    QTest::newRow("beyond 16 bits") << 1 << 32767 << int(RuntimeError::Overflow) << QString();
    QTest::newRow("smallest offset")
        << 12 << -32768 << int(RuntimeError::SubscriptOutOfRange) << QString();
}

void tst_notas::offsetsOutOfRange()
{
    QFETCH(int, index);
    QFETCH(int, offset);
    QFETCH(int, error);
    QFETCH(QString, name);
    Tabela_Nota = u"1"_qs;
    int raised = 0;
    QString result;
    try {
        result = Transpoe_Nota(std::int16_t(index), std::int16_t(offset));
    } catch (const RuntimeError& failure) {
        raised = failure.Number();
    }
    QCOMPARE(raised, error);
    QCOMPARE(result, name);
}

void tst_notas::thereAndBackAgain()
{
    for (int offset = -12; offset <= 12; ++offset) {
        for (std::int16_t index = 1; index <= 12; ++index) {
            Tabela_Nota = u"1"_qs;
            const QString there = Transpoe_Nota(index, std::int16_t(offset));
            const std::int16_t landed = Procura_Nota(there, Tabela_Nota);
            QCOMPARE(Transpoe_Nota(landed, std::int16_t(-offset)), Notas[std::size_t(index)]);
        }
    }
}

QTEST_APPLESS_MAIN(tst_notas)
#include "tst_notas.moc"
