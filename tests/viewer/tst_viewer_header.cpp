// Headers that are longer than the row: captions stay whole, only the drawing is cut.

#include "ViewerBench.h"

#include "viewer/RotuloCabecalho.h"

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
    QTest::addColumn<QString>("reference");
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QStringList>("cut");
    const QString words = u"uma canção de nome sem fim "_qs;
    const QString longText = words.repeated(12).trimmed();
    const QString shortText = u"Canção"_qs;
    QTest::newRow("long themes") << shortText << shortText << longText
                                 << QStringList{u"lblTemas"_qs};
    QTest::newRow("long reference")
        << shortText << longText << shortText << QStringList{u"lblReferencia"_qs};
    QTest::newRow("long title") << longText << shortText << shortText
                                << QStringList{u"lblTitulo"_qs};
    QTest::newRow("title and reference")
        << longText << longText << shortText << QStringList{u"lblTitulo"_qs, u"lblReferencia"_qs};
    QTest::newRow("everything") << longText << longText << longText
                                << QStringList{u"lblTitulo"_qs, u"lblReferencia"_qs,
                                               u"lblTemas"_qs};
}

void tst_viewer_header::longCaptionsAreCutInTheDrawingOnly()
{
    QFETCH(QString, title);
    QFETCH(QString, reference);
    QFETCH(QString, theme);
    QFETCH(QStringList, cut);
    const auto& catalogue = bench->catalogue;
    const qint64 song = catalogue.AddSong({.title = title, .reference = reference});
    catalogue.Link(song, catalogue.AddTheme(theme));
    const auto viewer = bench->Open(song);

    QCOMPARE(Caption(viewer, "lblTitulo"), title);
    QCOMPARE(Caption(viewer, "lblReferencia"), reference);
    QCOMPARE(Caption(viewer, "lblTemas"), theme);

    int end = 0;
    for (const char* name : {"lblTitulo", "lblTom", "lblReferencia", "lblTemas"}) {
        const auto* label = In<RotuloCabecalho>(viewer, name);
        const bool isCut = cut.contains(label->objectName());
        QVERIFY2(label->x() > end, name);
        QCOMPARE(label->width() < label->Largura_Inteira(), isCut);
        QCOMPARE(label->toolTip(), isCut ? label->text() : QString());
        end = label->geometry().right();
    }
    QVERIFY(end < In(viewer, "lblCont")->x());
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
    RotuloCabecalho cut;
    cut.Mostra_Texto(u"Santo, Santo, Santo é o Senhor"_qs);
    cut.Limita_Largura(cut.Largura_Inteira() / 2);
    const QString drawn = cut.fontMetrics().elidedText(cut.text(), Qt::ElideRight, cut.width() - 3);
    QVERIFY(drawn.endsWith(QChar(0x2026)));

    RotuloCabecalho whole;
    whole.Mostra_Texto(drawn);
    whole.resize(cut.size());
    QCOMPARE(cut.grab().toImage(), whole.grab().toImage());
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
