#include "store/shelf/SongTriples.h"
#include "store/shelf/TitleOrder.h"
#include "store/text/Collation.h"
#include "store/text/Like.h"

#include <QTest>

#include <algorithm>
#include <random>

namespace {

const std::vector<std::string> Pieces{"a",
                                      "b",
                                      "A",
                                      "é",
                                      "É",
                                      "ã",
                                      "ç",
                                      "c\xCC\xA7",
                                      "a\xCC\x83",
                                      "\xCC\x81",
                                      "l",
                                      "·",
                                      "ŀ",
                                      "ø",
                                      "æ",
                                      "ß",
                                      "ü",
                                      " ",
                                      "-",
                                      "'",
                                      "%",
                                      "_",
                                      "[",
                                      "]",
                                      "я",
                                      "Я",
                                      "한",
                                      "\xE1\x84\x92",
                                      "\xE1\x85\xA1",
                                      "\x01",
                                      "\xFF",
                                      "ế",
                                      "i",
                                      "İ",
                                      "ı",
                                      "😀",
                                      "abc",
                                      "não",
                                      "1",
                                      "Å"};

std::string Random(std::mt19937& random, unsigned most, std::size_t pieces)
{
    std::string text;
    for (auto i = random() % (most + 1); i > 0; --i)
        text += Pieces[random() % pieces];
    return text;
}

/// @return one of the shapes that a pattern may have
std::string Shaped(const std::string& part, const std::string& other, int shape)
{
    switch (shape % 5) {
    case 0:
        return part;
    case 1:
        return '%' + part + '%';
    case 2:
        return '%' + part + '_' + other + '%';
    case 3:
        return part + '%' + other;
    default:
        return '%' + part + "[!b-l]" + other + '%';
    }
}

int Sign(int number)
{
    return (number > 0) - (number < 0);
}

std::string Joined(const std::string& a, const char* between, const std::string& b)
{
    return std::string(a).append(between).append(b);
}

} // namespace

/// What is kept of texts says the same as the texts.
class tst_shelf_text : public QObject
{
    Q_OBJECT

private slots:
    void keepsEveryLetterInTwoParts();
    void matchesTheTwoPartsAsTheText();
    void ordersByLettersAsTheCollationDoes();
    void ordersTitlesAsTheCollationDoes();
    void rulesNoTextOutThatHoldsThePart();
    void rulesNothingOutByLessThanThreeLetters();
};

void tst_shelf_text::keepsEveryLetterInTwoParts()
{
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = Random(random, 30, Pieces.size());
        std::vector<Fold::Accented> accented;
        Fold::AppendAccented(accented, text);
        QVERIFY2(Fold::Letters(Fold::Bases(text), accented) == Fold::Letters(text), text.c_str());
    }
}

void tst_shelf_text::matchesTheTwoPartsAsTheText()
{
    std::mt19937 random(2);
    int matches = 0;
    for (int i = 0; i < 40000; ++i) {
        const std::string text = Random(random, 30, Pieces.size());
        const std::string part = Random(random, 3, Pieces.size());
        const Like like(Shaped(part, Random(random, 2, Pieces.size()), i));
        std::vector<Fold::Accented> accented;
        Fold::AppendAccented(accented, text);
        const std::string bases = Fold::Bases(text);
        const bool expected = like.Matches(text);
        QVERIFY2(like.Matches(bases, accented) == expected, Joined(text, " LIKE ", part).c_str());
        QVERIFY2(like.Matches(text, bases) == expected, Joined(text, " LIKE ", part).c_str());
        QVERIFY(!expected || like.MayMatch(bases));
        matches += expected ? 1 : 0;
    }
    QVERIFY(matches > 1000);
}

void tst_shelf_text::ordersByLettersAsTheCollationDoes()
{
    std::mt19937 random(3);
    const Collation& collation = Collation::Shared();
    int decided = 0;
    for (int i = 0; i < 40000; ++i) {
        const std::string a = Random(random, 4, Pieces.size());
        const std::string b = Random(random, 4, Pieces.size());
        std::string lettersA;
        std::string lettersB;
        if (!collation.AppendLetters(lettersA, a) || !collation.AppendLetters(lettersB, b) ||
            lettersA == lettersB)
            continue;
        QVERIFY2(Sign(lettersA.compare(lettersB)) == Sign(collation.CompareInIcu(a, b)),
                 Joined(a, " and ", b).c_str());
        ++decided;
    }
    QVERIFY(decided > 1000);
}

void tst_shelf_text::ordersTitlesAsTheCollationDoes()
{
    std::mt19937 random(4);
    for (int round = 0; round < 40; ++round) {
        SongPile pile;
        std::vector<const SongRow*> rows;
        for (qint64 id = 0; id < 150; ++id) {
            SongRow row;
            row.id = id;
            if (random() % 10 != 0)
                row.title = pile.texts.Keep(Random(random, 4, Pieces.size()));
            rows.push_back(random() % 20 == 0 ? nullptr : &pile.rows.emplace_back(row));
        }
        const std::vector<std::uint32_t> sorted = TitleOrder::Sorted(rows);
        QCOMPARE(sorted.size(), std::size_t(std::count_if(rows.begin(), rows.end(),
                                                          [](const SongRow* row) { return row; })));
        const auto isBefore = [&rows](std::uint32_t a, std::uint32_t b) {
            const SongRow& first = *rows[a];
            const SongRow& second = *rows[b];
            if (first.title.has_value() != second.title.has_value())
                return second.title.has_value();
            const int order =
                first.title ? Collation::Shared().CompareInIcu(*first.title, *second.title) : 0;
            return order != 0 ? order < 0 : first.id < second.id;
        };
        QVERIFY(std::is_sorted(sorted.begin(), sorted.end(), isBefore));
    }
}

void tst_shelf_text::rulesNoTextOutThatHoldsThePart()
{
    std::mt19937 random(5);
    SongTriples triples;
    constexpr SongTable::Place places = 1000;
    triples.Reserve(places);
    std::vector<std::string> texts(places);
    std::size_t left = 0;
    for (int i = 0; i < 20000; ++i) {
        const auto place = static_cast<SongTable::Place>(random() % places);
        texts[place] = Random(random, 40, Pieces.size());
        triples.Remove(place);
        triples.Put(place, texts[place]);
        const std::string& text = texts[random() % places];
        const std::string part = text.substr(random() % (text.size() + 1), random() % 8);
        std::vector<char> marks(places, 1);
        triples.Keep(marks, part);
        for (SongTable::Place other = 0; other < places; other += 7)
            QVERIFY(marks[other] != 0 || texts[other].find(part) == std::string::npos);
        std::vector<char> rare(places, 1);
        triples.Keep(rare, "zoxquem");
        left = std::max(left, std::size_t(std::count(rare.begin(), rare.end(), 1)));
    }
    QVERIFY(left < places / 20);
}

void tst_shelf_text::rulesNothingOutByLessThanThreeLetters()
{
    SongTriples triples;
    triples.Reserve(3);
    triples.Put(1, "luz");
    std::vector<char> marks{1, 1, 0};
    triples.Keep(marks, "");
    triples.Keep(marks, "xy");
    QCOMPARE(marks, (std::vector<char>{1, 1, 0}));
    triples.Keep(marks, "luz");
    QCOMPARE(marks, (std::vector<char>{0, 1, 0}));
    triples.Remove(1);
    triples.Keep(marks, "luz");
    QCOMPARE(marks, (std::vector<char>{0, 0, 0}));
}

QTEST_APPLESS_MAIN(tst_shelf_text)
#include "tst_shelf_text.moc"
