#include "mld/ExchangeLoss.h"

#include <QTest>

Q_DECLARE_METATYPE(ExchangeSong)

namespace {

enum Harm { Nothing, Letters, Unreadable, Both };

/// A song that comes back as it is.
ExchangeSong Sound()
{
    return {
        u"Canção d'água"_qs, u"“Zé” €"_qs, u"C\r\nLuz"_qs, u"D\r\n\tLuz"_qs, u"C"_qs, u"m"_qs, 1,
        {u"Adoração"_qs}};
}

} // namespace

class tst_exchange_loss : public QObject
{
    Q_OBJECT

private slots:
    void harm_is_told_data();
    void harm_is_told();
    void a_song_without_values_suffers_nothing();
};

void tst_exchange_loss::harm_is_told_data()
{
    QTest::addColumn<ExchangeSong>("song");
    QTest::addColumn<int>("harm");
    using Text = std::optional<QString> ExchangeSong::*;
    const std::pair<const char*, Text> free[]{{"titulo", &ExchangeSong::titulo},
                                              {"referencia", &ExchangeSong::referencia},
                                              {"letra1", &ExchangeSong::letra1},
                                              {"letra2", &ExchangeSong::letra2}};
    const std::pair<const char*, Text> stored[]{{"tom", &ExchangeSong::tom},
                                                {"variacao", &ExchangeSong::variacao}};
    const auto row = [](const char* what, const char* field, Text place, const QString& text,
                        Harm harm) {
        ExchangeSong song = Sound();
        if (place)
            song.*place = text;
        else
            song.temas.append(text);
        QTest::addRow("%s, %s", what, field) << song << int{harm};
    };
    const auto common = [&row](const char* field, Text place) {
        row("accents of the code page", field, place, u"áàãâéêíóôõúüçÁÃÇ"_qs, Nothing);
        row("marks that join their letter", field, place, u"ac\u0327a\u0303o"_qs, Nothing);
        row("one of the holes", field, place, u"\u0081\u009d"_qs, Nothing);
        row("a letter without a place", field, place, u"日"_qs, Letters);
        row("beyond the plane", field, place, u"🎸"_qs, Letters);
        row("a mark that joins nothing", field, place, u"\u0301x"_qs, Letters);
        row("begins with U+FEFF", field, place, u"\uFEFFx"_qs, Letters);
        row("half a pair", field, place, QString(QChar(0xd800)), Letters);
        row("ampersand", field, place, u"R&B"_qs, Unreadable);
        row("NUL", field, place, QString(QChar(u'\0')), Unreadable);
        row("escape", field, place, u"\u001b"_qs, Unreadable);
        row("both", field, place, u"&♭"_qs, Both);
        row("line breaks and tabs", field, place, u"a\r\nb\rc\nd\te"_qs, Nothing);
        row("apostrophes and quotes", field, place, u"'\""_qs, Nothing);
    };
    for (const auto& [field, place] : free) {
        common(field, place);
        row("less and greater are dropped", field, place, u"<ao> vivo"_qs, Nothing);
    }
    for (const auto& [field, place] : stored) {
        common(field, place);
        row("less", field, place, u"<"_qs, Unreadable);
        row("greater", field, place, u">"_qs, Unreadable);
    }
    common("tema", nullptr);
    row("less", "tema", nullptr, u"<"_qs, Unreadable);
    row("greater", "tema", nullptr, u">"_qs, Unreadable);
}

void tst_exchange_loss::harm_is_told()
{
    QFETCH(ExchangeSong, song);
    QFETCH(int, harm);
    const ExchangeLoss loss = ExchangeLoss::Of(song);
    QCOMPARE(loss.letters, harm == Letters || harm == Both);
    QCOMPARE(loss.unreadable, harm == Unreadable || harm == Both);
}

void tst_exchange_loss::a_song_without_values_suffers_nothing()
{
    QCOMPARE(ExchangeLoss::Of(ExchangeSong()), ExchangeLoss());
}

QTEST_APPLESS_MAIN(tst_exchange_loss)
#include "tst_exchange_loss.moc"
