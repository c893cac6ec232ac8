#include "PlainEngine.h"
#include "UsualNotes.h"
#include "chords/Cifra.h"
#include "runtime/RuntimeError.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Funcoes;

namespace {

constexpr quint32 Seed = 20110407;
constexpr int Songs = 30000;

/// Pieces that songs are made of, from the usual to the hostile.
const QStringList& Pieces()
{
    static const QStringList pieces = {
        u"\r\n"_qs,       u"\r\n"_qs,   u"\r\n"_qs,   u" "_qs,     u"    "_qs,    u"C"_qs,
        u"D/F#"_qs,       u"Bb"_qs,     u"G7(b9)"_qs, u"Am7"_qs,   u"E4"_qs,      u"| "_qs,
        u"INTRO: "_qs,    u"(2x)"_qs,   u"Santo"_qs,  u"não é"_qs, u"coração"_qs, u"sob"_qs,
        u"    Refrão"_qs, u"50%"_qs,    u"#"_qs,      u"b"_qs,     u"("_qs,       u"º"_qs,
        u"\r"_qs,         u"\n"_qs,     u"%"_qs,      u"\r%\n"_qs, u"£"_qs,       u"\\"_qs,
        u"{"_qs,          u"}"_qs,      u"\t"_qs,     u"ß"_qs,     u"\u266B"_qs,  u"\U0001F3B5"_qs,
        u"\u00A0"_qs,     u"\u2029"_qs, u"ǆ"_qs,      u"µ"_qs,     u"H"_qs,       u"?"_qs};
    return pieces;
}

class Chance
{
public:
    explicit Chance(quint32 seed)
        : m_numbers(seed)
    {
    }

    int Below(int bound) { return int(m_numbers.bounded(bound)); }
    bool OneIn(int bound) { return Below(bound) == 0; }
    QChar AnyUnit() { return QChar(char16_t(Below(0x10000))); }

    QString Song()
    {
        QString song;
        const int pieces = OneIn(20) ? Below(400) : Below(24);
        const bool hostile = OneIn(3);
        for (int i = 0; i < pieces; ++i) {
            if (hostile && OneIn(8))
                song += AnyUnit();
            else if (hostile && OneIn(8))
                song += QChar(char16_t(Below(0x100)));
            else
                song += Pieces().at(Below(int(Pieces().size())));
        }
        return song;
    }

    QString OddName()
    {
        switch (Below(9)) {
        case 0:
            return QString();
        case 1:
            return QString(AnyUnit());
        case 2:
            return QString(AnyUnit()) + u'b';
        case 3:
            return Pieces().at(Below(int(Pieces().size())));
        case 4:
            return QString(QChar(char16_t(Below(0x100)))) + (OneIn(2) ? u'#' : u'b');
        case 5:
            return QString(QChar(char16_t(Below(0x100))));
        case 6:
            return QString(Below(200), u'n');
        case 7:
            return QString(u"CDEFGAB\\%£ (#b"[Below(13)]) + (OneIn(2) ? u"#"_qs : QString());
        default:
            return u"Sol"_qs;
        }
    }

    int Offset() { return OneIn(8) ? Below(0x10000) - 0x8000 : Below(OneIn(4) ? 81 : 25) - 12; }
    int FontStep() { return OneIn(8) ? Below(0x10000) - 0x8000 : Below(80) - 40; }

private:
    QRandomGenerator m_numbers;
};

struct Outcome
{
    QString sheet;
    int error = 0;
    QString table;

    bool operator==(const Outcome&) const = default;
};

template <typename Render>
Outcome Run(const QString& table, Render render)
{
    Outcome outcome;
    try {
        outcome.sheet = render();
    } catch (const RuntimeError& failure) {
        outcome.error = failure.Number();
    }
    outcome.table = table;
    return outcome;
}

void ShuffleNames(Chance& chance)
{
    LoadUsualNotes();
    if (!chance.OneIn(3))
        return;
    for (int changes = chance.Below(13); changes > 0; --changes) {
        auto& notes = chance.OneIn(2) ? Notas : Notas_Mais;
        notes[std::size_t(chance.Below(13))] = chance.OddName();
    }
}

} // namespace

class tst_plain_engine : public QObject
{
    Q_OBJECT

private slots:
    void bothEnginesAgree();
    void bothTellTheSameLinesApart();
};

void tst_plain_engine::bothEnginesAgree()
{
    Chance chance(Seed);
    PlainEngine plain;
    int failures = 0;
    int chordLines = 0;
    for (int round = 0; round < Songs; ++round) {
        ShuffleNames(chance);
        plain.Notas = Notas;
        plain.Notas_Mais = Notas_Mais;
        plain.Tabela_Nota = Tabela_Nota = u"before"_qs;
        const QString song = chance.Song();
        const auto offset = std::int16_t(chance.Offset());
        const auto step = std::int16_t(chance.FontStep());
        const bool chords = !chance.OneIn(4);

        const Outcome expected =
            Run(plain.Tabela_Nota, [&] { return plain.Monta_Cifra(song, offset, step, chords); });
        const Outcome actual =
            Run(Tabela_Nota, [&] { return Monta_Cifra(song, offset, step, chords); });
        if (actual != expected) {
            qWarning() << "offset" << offset << "step" << step << "chords" << chords << song;
            QCOMPARE(actual.sheet, expected.sheet);
            QCOMPARE(actual.error, expected.error);
            QCOMPARE(actual.table, expected.table);
        }
        failures += expected.error != 0 ? 1 : 0;
        chordLines += int(expected.sheet.count(u"\\cf1"));
    }
    // The songs are worth comparing only if they reach both kinds of line and both ends.
    QVERIFY(failures > 100 && failures < Songs / 4);
    QVERIFY(chordLines > Songs);
}

void tst_plain_engine::bothTellTheSameLinesApart()
{
    Chance chance(Seed + 1);
    PlainEngine plain;
    int accepted = 0;
    for (int round = 0; round < Songs; ++round) {
        ShuffleNames(chance);
        plain.Notas = Notas;
        plain.Notas_Mais = Notas_Mais;
        plain.Tabela_Nota = Tabela_Nota = u"before"_qs;
        const QString line = chance.Song().left(chance.Below(12));
        const bool expected = plain.Linha_Cifra(line);
        QVERIFY2(Linha_Cifra(line) == expected, qPrintable(line));
        QCOMPARE(Tabela_Nota, plain.Tabela_Nota);
        accepted += expected ? 1 : 0;
    }
    QVERIFY(accepted > Songs / 10 && accepted < Songs * 9 / 10);
}

QTEST_APPLESS_MAIN(tst_plain_engine)
#include "tst_plain_engine.moc"
