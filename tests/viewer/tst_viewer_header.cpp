// Headers that are longer than the row: captions stay whole, only the drawing is cut.

#include "ViewerBench.h"

#include "viewer/RotuloCabecalho.h"

namespace {

/// @return what the label shows, dark on white
QImage Drawing(QWidget& label)
{
    label.setPalette(QPalette(Qt::black, Qt::white));
    label.setAutoFillBackground(true);
    QImage drawing(label.size(), QImage::Format_RGB32); // one pixel each, whatever the scale
    label.render(&drawing);
    return drawing.convertToFormat(QImage::Format_Grayscale8);
}

bool Inked(const QImage& picture, int x, int y)
{
    return qGray(picture.pixel(x, y)) < 128;
}

/// @return the first row with ink in the columns from to to, -1 for none
int FirstInkRow(const QImage& picture, int from, int to)
{
    for (int y = 0; y < picture.height(); ++y)
        for (int x = from; x <= to; ++x)
            if (Inked(picture, x, y))
                return y;
    return -1;
}

/// @return the last column with ink, -1 for none
int LastInk(const QImage& picture)
{
    int x = picture.width() - 1;
    while (x >= 0 && FirstInkRow(picture, x, x) < 0)
        --x;
    return x;
}

} // namespace

class tst_viewer_header : public QObject
{
    Q_OBJECT

private slots:
    void init() { bench = std::make_unique<ViewerBench>(); }
    void cleanup() { bench.reset(); }

    void longCaptionsAreCutInTheDrawingOnly_data();
    void longCaptionsAreCutInTheDrawingOnly();
    void captionsThatFitAreNotCut();
    void theNextSongGetsItsRoomBack();
    void aCutCaptionEndsInAnEllipsis();
    void markupIsShownAsTyped();

private:
    std::unique_ptr<ViewerBench> bench;
};

void tst_viewer_header::longCaptionsAreCutInTheDrawingOnly_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("variation");
    QTest::addColumn<QString>("reference");
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QStringList>("cut");
    const QString words = u"uma canção de nome sem fim "_qs;
    const QString longText = words.repeated(16).trimmed();
    const QString shortText = u"Canção"_qs;
    const QString none;
    const QString m = u"m"_qs;
    const QString title = u"lblTitulo"_qs;
    const QString key = u"lblTom"_qs;
    const QString reference = u"lblReferencia"_qs;
    const QString themes = u"lblTemas"_qs;
    QTest::newRow("long themes") << shortText << m << shortText << longText << QStringList{themes};
    QTest::newRow("long themes, no reference")
        << shortText << m << none << longText << QStringList{themes};
    QTest::newRow("long reference")
        << shortText << m << longText << shortText << QStringList{reference};
    QTest::newRow("long reference, no themes")
        << shortText << m << longText << none << QStringList{reference};
    QTest::newRow("long title") << longText << m << shortText << shortText << QStringList{title};
    QTest::newRow("long title and nothing else")
        << longText << none << none << none << QStringList{title};
    QTest::newRow("long variation")
        << shortText << longText << shortText << shortText << QStringList{key};
    QTest::newRow("title and reference")
        << longText << m << longText << shortText << QStringList{title, reference};
    QTest::newRow("everything but the key")
        << longText << m << longText << longText << QStringList{title, reference, themes};
    QTest::newRow("everything") << longText << longText << longText << longText
                                << QStringList{title, key, reference, themes};
}

void tst_viewer_header::longCaptionsAreCutInTheDrawingOnly()
{
    QFETCH(QString, title);
    QFETCH(QString, variation);
    QFETCH(QString, reference);
    QFETCH(QString, theme);
    QFETCH(QStringList, cut);
    const auto& catalogue = bench->catalogue;
    const qint64 song =
        catalogue.AddSong({.title = title, .reference = reference, .variation = variation});
    if (!theme.isEmpty())
        catalogue.Link(song, catalogue.AddTheme(theme));
    const auto viewer = bench->Open(song);

    QCOMPARE(Caption(viewer, "lblTitulo"), title);
    QCOMPARE(Caption(viewer, "lblTom"), QString(u"(C"_qs + variation + u")"_qs));
    QCOMPARE(Caption(viewer, "lblReferencia"), reference);
    QCOMPARE(Caption(viewer, "lblTemas"), theme);

    int end = 0;
    for (const char* name : {"lblTitulo", "lblTom", "lblReferencia", "lblTemas"}) {
        const auto* label = In<RotuloCabecalho>(viewer, name);
        const bool isCut = cut.contains(label->objectName());
        QVERIFY2(label->x() > end, name);
        QCOMPARE(label->width() < label->Largura_Inteira(), isCut);
        QCOMPARE(label->toolTip(), isCut ? label->text() : QString());
        if (!label->text().isEmpty())
            end = label->geometry().right();
    }
    // As much room before the countdown as between two captions, and no more than cutting to whole
    // pixels takes.
    const int gap = In(viewer, "lblCont")->x() - (end + 1);
    QVERIFY2(gap >= 8 && gap < 12, qPrintable(QString::number(gap)));
}

void tst_viewer_header::captionsThatFitAreNotCut()
{
    const auto viewer = bench->Open(TestSong{});
    for (const char* name : {"lblTitulo", "lblTom", "lblReferencia"}) {
        const auto* label = In<RotuloCabecalho>(viewer, name);
        QCOMPARE(label->width(), label->Largura_Inteira());
        QCOMPARE(label->toolTip(), QString());
    }
}

void tst_viewer_header::theNextSongGetsItsRoomBack()
{
    const auto viewer = bench->Open({.title = u"muito comprido "_qs.repeated(30)});
    QVERIFY(!In(viewer, "lblTitulo")->toolTip().isEmpty());
    viewer->ID_Musica = static_cast<double>(bench->catalogue.AddSong(u"Curta"_qs));
    viewer->Carrega_Musica();
    viewer->Atualiza_Musica(2);
    const auto* label = In<RotuloCabecalho>(viewer, "lblTitulo");
    QCOMPARE(label->toolTip(), QString());
    QCOMPARE(label->width(), label->Largura_Inteira());
}

void tst_viewer_header::aCutCaptionEndsInAnEllipsis()
{
    const QString text(40, u'l'); // tall letters up to the end
    RotuloCabecalho cut;
    cut.Mostra_Texto(text);
    cut.Limita_Largura(cut.Largura_Inteira() / 2);
    const QImage drawn = Drawing(cut);

    // The last letter is not sawn through: what is drawn ends before the width does...
    const int end = LastInk(drawn);
    QVERIFY2(end > 0 && end < cut.width() - 1, qPrintable(QString::number(end)));
    // ...and the end is made of dots, which stay low.
    const int dots = cut.fontMetrics().horizontalAdvance(QChar(0x2026));
    const int letters = FirstInkRow(drawn, 0, end - dots - 1);
    const int low = FirstInkRow(drawn, end - dots / 2, end);
    QVERIFY2(low - letters > cut.fontMetrics().xHeight() / 2, qPrintable(QString::number(low)));

    // A caption that is only clipped shows letters there.
    RotuloCabecalho clipped;
    clipped.Mostra_Texto(text);
    const QImage whole = Drawing(clipped).copy(0, 0, cut.width(), cut.height());
    QCOMPARE(FirstInkRow(whole, end - dots / 2, end), letters);
    QVERIFY(drawn != whole);
}

void tst_viewer_header::markupIsShownAsTyped()
{
    RotuloCabecalho label;
    label.Mostra_Texto(u"<b>Santo</b> & Deus"_qs);
    QCOMPARE(label.text(), u"<b>Santo</b> & Deus"_qs);
    QVERIFY(label.Largura_Inteira() > label.fontMetrics().horizontalAdvance(u"Santo & Deus"_qs));
    label.Limita_Largura(20);
    QCOMPARE(label.toolTip(), u"<span>&lt;b&gt;Santo&lt;/b&gt; &amp; Deus</span>"_qs);
}

QTEST_MAIN(tst_viewer_header)
#include "tst_viewer_header.moc"
