#include "controls/Appearance.h"
#include "controls/RichTextBox.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

/// The chord sheet as an editor: what comes through the clipboard, undo, and sheets that are long.
class tst_sheet_editing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }

    void pastesPlainText_data();
    void pastesPlainText();
    void pastesOverTheSelection();
    void pasteIsUndoneAtOnce();
    void pastesNothingIntoAReadOnlySheet();
    void pastesNothingFromAPicture();
    void pastesNothingFromCopiedFiles();
    void formatsOfAWebPageAreLeftBehind();
    void cutAndPasteKeepTheText();
    void typedLettersAreUndoneAndRedone();
    void tellsWhenTheFocusComes();
    void longSheetIsEditedAtBothEnds();
};

void tst_sheet_editing::pastesPlainText_data()
{
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("text");
    QTest::newRow("LF of a web page") << u"C  G7\nSanto\n"_qs << u"C  G7\r\nSanto\r\n"_qs;
    QTest::newRow("CR LF of a word processor") << u"C\r\nSanto\r\n"_qs << u"C\r\nSanto\r\n"_qs;
    QTest::newRow("CR alone") << u"C\rSanto"_qs << u"C\r\nSanto"_qs;
    QTest::newRow("mixed") << u"a\n\r\n\rb"_qs << u"a\r\n\r\n\r\nb"_qs;
    QTest::newRow("soft line break as VT") << u"C\vSanto"_qs << u"C\r\nSanto"_qs;
    QTest::newRow("soft line break as U+2028") << u"C\u2028Santo"_qs << u"C\r\nSanto"_qs;
    QTest::newRow("paragraph separator") << u"C\u2029Santo"_qs << u"C\r\nSanto"_qs;
    QTest::newRow("page break") << u"C\fSanto"_qs << u"C\r\nSanto"_qs;
    QTest::newRow("NEL") << u"C\u0085Santo"_qs << u"C\r\nSanto"_qs;
    QTest::newRow("no-break spaces stay")
        << u"C\u00A0\u00A0G\nSan\u00A0to"_qs << u"C\u00A0\u00A0G\r\nSan\u00A0to"_qs;
    QTest::newRow("blanks at both ends stay") << u"  C  \n  Santo  "_qs << u"  C  \r\n  Santo  "_qs;
    QTest::newRow("tab") << u"C\tG"_qs << u"C\tG"_qs;
    QTest::newRow("control characters") << u"a\u0001b\u001Bc"_qs << u"a\u0001b\u001Bc"_qs;
    QTest::newRow("lone surrogate") << QString(u"a"_qs).append(QChar(0xD83C)).append(u'b')
                                    << QString(u"a"_qs).append(QChar(0xD83C)).append(u'b');
    QTest::newRow("codes that a text document takes for breaks of its own")
        << u"a\uFDD0b\uFDD1c"_qs << u"a\uFDD0b\uFDD1c"_qs;
    QTest::newRow("signs of RTF and markup")
        << u"{\\rtf1 <b>£ 50%</b>}"_qs << u"{\\rtf1 <b>£ 50%</b>}"_qs;
    QTest::newRow("nothing") << u""_qs << u""_qs;
}

void tst_sheet_editing::pastesPlainText()
{
    QFETCH(QString, clipboard);
    QFETCH(QString, text);
    QGuiApplication::clipboard()->setText(clipboard);
    RichTextBox box;
    box.paste();
    QCOMPARE(box.Text(), text);
    // As it comes back from a document made of it.
    RichTextBox copy;
    copy.SetTextRTF(box.TextRTF());
    QCOMPARE(copy.Text(), text);
}

void tst_sheet_editing::pastesOverTheSelection()
{
    QGuiApplication::clipboard()->setText(u"um\ndois"_qs);
    RichTextBox box;
    box.SetText(u"antes\nmeio\ndepois"_qs);
    QTextCursor cursor = box.textCursor();
    cursor.setPosition(6);
    cursor.setPosition(10, QTextCursor::KeepAnchor);
    box.setTextCursor(cursor);
    box.paste();
    QCOMPARE(box.Text(), u"antes\r\num\r\ndois\r\ndepois"_qs);
    QVERIFY(!box.textCursor().hasSelection());
    QCOMPARE(box.textCursor().position(), 13);
}

void tst_sheet_editing::pasteIsUndoneAtOnce()
{
    QGuiApplication::clipboard()->setText(u"um\r\ndois\ntrês"_qs);
    RichTextBox box;
    box.SetText(u"antes"_qs);
    box.moveCursor(QTextCursor::End);
    box.paste();
    box.undo();
    QCOMPARE(box.Text(), u"antes"_qs);
    box.redo();
    QCOMPARE(box.Text(), u"antesum\r\ndois\r\ntrês"_qs);
}

void tst_sheet_editing::pastesNothingIntoAReadOnlySheet()
{
    QGuiApplication::clipboard()->setText(u"um"_qs);
    RichTextBox box;
    box.SetText(u"antes"_qs);
    box.setReadOnly(true);
    box.paste();
    QCOMPARE(box.Text(), u"antes"_qs);
}

void tst_sheet_editing::pastesNothingFromAPicture()
{
    auto* content = new QMimeData;
    content->setImageData(QImage(4, 4, QImage::Format_RGB32));
    QGuiApplication::clipboard()->setMimeData(content);
    RichTextBox box;
    box.SetText(u"antes"_qs);
    box.paste();
    QCOMPARE(box.Text(), u"antes"_qs);
}

void tst_sheet_editing::pastesNothingFromCopiedFiles()
{
    auto* content = new QMimeData;
    content->setUrls({QUrl(u"file:///home/ana/luz.mld"_qs)});
    QGuiApplication::clipboard()->setMimeData(content);
    RichTextBox box;
    box.SetText(u"antes"_qs);
    box.paste();
    QCOMPARE(box.Text(), u"antes"_qs);
}

void tst_sheet_editing::formatsOfAWebPageAreLeftBehind()
{
    auto* content = new QMimeData;
    content->setText(u"Santo\nDeus"_qs);
    content->setHtml(u"<h1 style='color:red'>Santo</h1><img src='x.png'><p>Deus"_qs);
    QGuiApplication::clipboard()->setMimeData(content);
    RichTextBox box;
    box.paste();
    QCOMPARE(box.Text(), u"Santo\r\nDeus"_qs);
    for (const int position : {1, 8}) {
        QTextCursor cursor(box.document());
        cursor.setPosition(position);
        QCOMPARE(cursor.charFormat().font().family(), Appearance::MonospacedFamily());
        QCOMPARE(cursor.charFormat().font().pointSizeF(), box.font().pointSizeF());
        QVERIFY(cursor.charFormat().fontWeight() <= QFont::Normal);
        QVERIFY(!cursor.charFormat().hasProperty(QTextFormat::ForegroundBrush));
    }
}

void tst_sheet_editing::cutAndPasteKeepTheText()
{
    const QString text = u"C  G7\r\nSan\u00A0to\r\n\r\n"_qs;
    RichTextBox box;
    box.SetText(text);
    box.selectAll();
    box.cut();
    QCOMPARE(box.Text(), QString());
    box.paste();
    QCOMPARE(box.Text(), text);
}

void tst_sheet_editing::typedLettersAreUndoneAndRedone()
{
    RichTextBox box;
    box.SetText(u"Luz"_qs);
    box.moveCursor(QTextCursor::End);
    QTest::keyClicks(&box, u" do mundo"_qs);
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(box.Text(), u"Luz"_qs);
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(box.Text(), u"Luz"_qs);
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(box.Text(), u"Luz do mundo"_qs);
}

void tst_sheet_editing::tellsWhenTheFocusComes()
{
    QWidget window;
    auto* first = new RichTextBox(&window);
    auto* second = new RichTextBox(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    first->setFocus();
    const QSignalSpy focus(second, &RichTextBox::GotFocus);
    second->setFocus();
    QCOMPARE(focus.count(), 1);
}

void tst_sheet_editing::longSheetIsEditedAtBothEnds()
{
    QString lines;
    for (int i = 0; i < 5000; ++i)
        lines += u"C  G7  %1\nSanto\n"_qs.arg(i);
    QGuiApplication::clipboard()->setText(lines);
    RichTextBox box;
    box.resize(600, 400);
    box.show();
    box.paste();
    QCOMPARE(box.document()->blockCount(), 10001);
    box.moveCursor(QTextCursor::Start);
    QTest::keyClicks(&box, u"Am "_qs);
    box.moveCursor(QTextCursor::End);
    QTest::keyClicks(&box, u"fim"_qs);
    QString expected = u"Am "_qs + lines.replace(u'\n', u"\r\n"_qs) + u"fim"_qs;
    QCOMPARE(box.Text(), expected);
}

QTEST_MAIN(tst_sheet_editing)
#include "tst_sheet_editing.moc"
