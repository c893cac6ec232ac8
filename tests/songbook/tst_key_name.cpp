#include "chords/Notas.h"
#include "songbook/KeyName.h"
#include "songbook/SongDraft.h"
#include "songbook/UsualScale.h"

#include <QTest>

using namespace Songbook;

/// Keys as others write them, in letters and in words: what the columns TOM and VARIACAO hold.
class tst_key_name : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { LoadUsualScale(); }
    void keysFindTheirColumns_data();
    void keysFindTheirColumns();
    void everyNoteIsKnownInEveryWriting_data();
    void everyNoteIsKnownInEveryWriting();
    void wordsAreNoKeys_data();
    void wordsAreNoKeys();
    void keysNotUnderstoodAreTold_data();
    void keysNotUnderstoodAreTold();
    void keyOfAChordIsItsRootAndMode();
};

void tst_key_name::keysFindTheirColumns_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("tom");
    QTest::addColumn<QString>("variacao");
    QTest::addColumn<bool>("whole");
    const auto row = [](const char* story, const QString& key, const QString& tom,
                        const QString& variacao, bool whole = true) {
        QTest::newRow(story) << key << tom << variacao << whole;
    };
    row("major", u"G"_qs, u"G"_qs, u""_qs);
    row("minor", u"F#m"_qs, u"F#"_qs, u"m"_qs);
    row("flat, which the combo box lacks", u"Bb"_qs, u"A#"_qs, u""_qs);
    row("minor in English", u"A minor"_qs, u"A"_qs, u"m"_qs);
    row("minor in Portuguese", u"Ré menor"_qs, u"D"_qs, u"m"_qs);
    row("major in Portuguese", u"Sol maior"_qs, u"G"_qs, u""_qs);
    row("minor in German", u"h-moll"_qs, u"B"_qs, u"m"_qs);
    row("C flat", u"Cb"_qs, u"B"_qs, u""_qs);
    row("small letters", u"dó"_qs, u"C"_qs, u""_qs);
    row("no accent", u"do"_qs, u"C"_qs, u""_qs);
    row("capitals", u"RÉ"_qs, u"D"_qs, u""_qs);
    row("an accent by itself", u"Do\u0301"_qs, u"C"_qs, u""_qs);
    row("a flat in words", u"Si bemol"_qs, u"A#"_qs, u""_qs);
    row("a flat glued to its note", u"sibemol"_qs, u"A#"_qs, u""_qs);
    row("a sharp in words", u"Fá sustenido"_qs, u"F#"_qs, u""_qs);
    row("a sharp and a mode", u"DÓ SUSTENIDO MENOR"_qs, u"C#"_qs, u"m"_qs);
    row("a sharp shortened", u"Fa sust. menor"_qs, u"F#"_qs, u"m"_qs);
    row("a flat in English", u"E flat"_qs, u"D#"_qs, u""_qs);
    row("a sharp in English", u"C sharp"_qs, u"C#"_qs, u""_qs);
    row("hyphens for blanks", u"C-sharp-minor"_qs, u"C#"_qs, u"m"_qs);
    row("solmised with a sign and a mode", u"lá#m"_qs, u"A#"_qs, u"m"_qs);
    row("a sign apart", u"Mi b"_qs, u"D#"_qs, u""_qs);
    row("a sign and a mode apart", u"Mi b m"_qs, u"D#"_qs, u"m"_qs);
    row("a sign glued to its mode", u"Si bm"_qs, u"A#"_qs, u"m"_qs);
    row("a flat in a capital", u"SIB"_qs, u"A#"_qs, u""_qs);
    row("the sign of music", u"Si♭ menor"_qs, u"A#"_qs, u"m"_qs);
    row("a small flat", u"bb"_qs, u"A#"_qs, u""_qs);
    row("a double flat", u"Bbb"_qs, u"A"_qs, u""_qs);
    row("minor as a hyphen", u"A-"_qs, u"A"_qs, u"m"_qs);
    row("major as a capital", u"DM"_qs, u"D"_qs, u""_qs);
    row("minor shortened with a dot", u"Lá min."_qs, u"A"_qs, u"m"_qs);
    row("solmised minor in one word", u"Solm"_qs, u"G"_qs, u"m"_qs);
    row("mi minor is not a short minor", u"Mim"_qs, u"E"_qs, u"m"_qs);
    row("a chord for a key", u"Dm7"_qs, u"D"_qs, u"m"_qs, false);
    row("a major seventh for a key", u"Dmaj7"_qs, u"D"_qs, u""_qs, false);
    row("a bass", u"G/B"_qs, u"G"_qs, u""_qs, false);
    row("a mode", u"D dorian"_qs, u"D"_qs, u""_qs, false);
    row("a remark behind", u"Am (capo 2)"_qs, u"A"_qs, u"m"_qs, false);
    row("a remark behind words", u"Lá menor, original Sol"_qs, u"A"_qs, u"m"_qs, false);
    row("two keys", u"A B"_qs, u"A"_qs, u""_qs, false);
}

void tst_key_name::keysFindTheirColumns()
{
    QFETCH(QString, key);
    const auto name = SpellKey(key);
    QVERIFY(name.has_value());
    QTEST(name->tom, "tom");
    QTEST(name->variacao, "variacao");
    QTEST(name->whole, "whole");
}

void tst_key_name::everyNoteIsKnownInEveryWriting_data()
{
    QTest::addColumn<QStringList>("writings");
    QTest::addColumn<int>("index");
    const auto row = [](const char* note, const QStringList& names, int index) {
        QTest::newRow(note) << names << index;
    };
    row("C", {u"C"_qs, u"Dó"_qs, u"Do"_qs}, 1);
    row("D", {u"D"_qs, u"Ré"_qs, u"Re"_qs}, 3);
    row("E", {u"E"_qs, u"Mi"_qs}, 5);
    row("F", {u"F"_qs, u"Fá"_qs, u"Fa"_qs}, 6);
    row("G", {u"G"_qs, u"Sol"_qs}, 8);
    row("A", {u"A"_qs, u"Lá"_qs, u"La"_qs}, 10);
    row("B", {u"B"_qs, u"Si"_qs}, 12);
}

void tst_key_name::everyNoteIsKnownInEveryWriting()
{
    QFETCH(QStringList, writings);
    QFETCH(int, index);
    using Sign = std::pair<QString, int>;
    const QList<Sign> signs = {{u""_qs, 0},           {u"#"_qs, 1},       {u"b"_qs, 11},
                               {u" sustenido"_qs, 1}, {u" bemol"_qs, 11}, {u" sharp"_qs, 1},
                               {u" flat"_qs, 11},     {u" #"_qs, 1},      {u"\u266D"_qs, 11}};
    using Ending = std::pair<QString, QString>;
    const QList<Ending> endings = {{u""_qs, u""_qs},        {u" maior"_qs, u""_qs},
                                   {u" menor"_qs, u"m"_qs}, {u"m"_qs, u"m"_qs},
                                   {u" minor"_qs, u"m"_qs}, {u" major"_qs, u""_qs}};
    for (const QString& note : writings) {
        for (const auto& [sign, step] : signs) {
            for (const auto& [ending, variacao] : endings) {
                const QString written = note + sign + ending;
                const bool mergesIntoAWord = sign.endsWith(u't') || sign.endsWith(u'o');
                if (ending == u"m" &&
                    (mergesIntoAWord || sign.endsWith(u'l') || sign.endsWith(u'p')))
                    continue; // "bemolm" is nobody's writing
                for (const QString& key : {written, written.toLower(), written.toUpper()}) {
                    if (key.endsWith(u'M') && ending == u"m")
                        continue; // a capital is major
                    const auto name = SpellKey(key);
                    QVERIFY2(name, qPrintable(key));
                    const int wanted = (index - 1 + step) % 12 + 1;
                    QVERIFY2(name->tom == Funcoes::Notas[static_cast<std::size_t>(wanted)],
                             qPrintable(key + u" -> " + name->tom));
                    QVERIFY2(name->variacao == variacao && name->whole, qPrintable(key));
                }
            }
        }
    }
}

void tst_key_name::wordsAreNoKeys_data()
{
    QTest::addColumn<QString>("word");
    for (const char16_t* word :
         {u"", u" ", u"Original", u"Fácil", u"Domingo", u"Lado A", u"Mixolídio", u"Diversos", u"?",
          u"Banda", u"Sem tom", u"#", u"(G)", u"1", u"Gbanda", u"Éden", u"Cis"}) {
        const QString text = QString::fromUtf16(word);
        QTest::newRow(qPrintable(text.trimmed().isEmpty() ? u"'%1'"_qs.arg(text) : text)) << text;
    }
}

void tst_key_name::wordsAreNoKeys()
{
    QFETCH(QString, word);
    const auto name = SpellKey(word);
    QVERIFY2(!name, qPrintable(name ? name->tom + name->variacao : QString()));
}

void tst_key_name::keysNotUnderstoodAreTold_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("told");
    QTest::newRow("as it is") << u"Am"_qs << u"Am"_qs << u""_qs;
    QTest::newRow("in words") << u"Lá menor"_qs << u"Am"_qs
                              << u"nota: o tom \"Lá menor\" foi escrito \"Am\""_qs;
    QTest::newRow("a part of it") << u"D dórico"_qs << u"D"_qs
                                  << u"perdido: do tom \"D dórico\" ficou \"D\""_qs;
    QTest::newRow("nothing of it")
        << u"Original"_qs << u"C"_qs << u"perdido: o tom \"Original\" não foi reconhecido"_qs;
}

void tst_key_name::keysNotUnderstoodAreTold()
{
    QFETCH(QString, key);
    Remarks remarks;
    SongDraft draft;
    draft.AddTitle(u"Noite"_qs, 1, remarks);
    draft.SetKey(key, 2, remarks);
    const ExchangeSong song = draft.Finish({}, remarks);
    QString told;
    for (const Remark& remark : remarks.All()) {
        QCOMPARE(remark.line, 2);
        const bool isLost = remark.kind == Remark::Kind::Lost;
        told += (isLost ? u"perdido: "_qs : u"nota: "_qs) + remark.what;
    }
    QTEST(QString(*song.tom + *song.variacao), "stored");
    QTEST(told, "told");
}

void tst_key_name::keyOfAChordIsItsRootAndMode()
{
    QCOMPARE(KeyOfChord(u"Bbm7/F")->tom, u"A#"_qs);
    QCOMPARE(KeyOfChord(u"Bbm7/F")->variacao, u"m"_qs);
    QCOMPARE(KeyOfChord(u"Cmaj7")->variacao, u""_qs);
    QVERIFY(!KeyOfChord(u"(2x)"));
    QVERIFY(!KeyOfChord(u"X"));
}

QTEST_APPLESS_MAIN(tst_key_name)
#include "tst_key_name.moc"
