// What a text document cannot hold, or not show in any useful time: shown as a sign, read back
// whole.

#include "chords/Cifra.h"
#include "chords/Notas.h"
#include "controls/Appearance.h"
#include "controls/RichTextBox.h"

#include <QMimeData>
#include <QTest>
#include <QTextBlock>

#include <memory>

namespace {

QString Render(const QString& song, int step = 0, bool chords = true)
{
    return Funcoes::Monta_Cifra(song, 0, std::int16_t(step), chords);
}

int LeftOf(const RichTextBox& box, int position)
{
    QTextCursor cursor(box.document());
    cursor.setPosition(position);
    return box.cursorRect(cursor).left();
}

/// Open to the protected door through which text goes to the clipboard.
class CopyBox : public RichTextBox
{
public:
    using RichTextBox::createMimeDataFromSelection;
};

} // namespace

class tst_stand_ins : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init();

    void whatADocumentCannotHoldIsShownAsASign();
    void typingBesideAStandInLeavesItAlone();
    void aStandInIsCopiedAsWhatItStandsFor();
    void aLineThatIsTooLongToShapeIsShownInPart();
};

void tst_stand_ins::init()
{
    Funcoes::Notas = {u"?"_qs,  u"C"_qs, u"C#"_qs, u"D"_qs, u"D#"_qs, u"E"_qs, u"F"_qs,
                      u"F#"_qs, u"G"_qs, u"G#"_qs, u"A"_qs, u"A#"_qs, u"B"_qs};
    Funcoes::Notas_Mais = {u"?"_qs,  u"C"_qs, u"Db"_qs, u"D"_qs, u"Eb"_qs, u"E"_qs, u"F"_qs,
                           u"Gb"_qs, u"G"_qs, u"Ab"_qs, u"A"_qs, u"Bb"_qs, u"B"_qs};
}

void tst_stand_ins::whatADocumentCannotHoldIsShownAsASign()
{
    RichTextBox box;
    box.SetTextRTF(Render(u"C\r\né a\u2029b\uFDD0c\uFDD1d\r\n"_qs));
    QCOMPARE(box.document()->blockCount(), 3);
    QCOMPARE(box.document()->findBlockByNumber(1).length(), int(u"é a.b.c.d"_qs.size()) + 1);
    QVERIFY(LeftOf(box, 6) > LeftOf(box, 5)); // the sign takes a place
}

void tst_stand_ins::typingBesideAStandInLeavesItAlone()
{
    RichTextBox box;
    box.SetTextRTF(Render(u"C\r\né a\u2029\u2029b"_qs));
    QTextCursor cursor(box.document());
    for (const int position : {7, 6, 5}) {
        cursor.setPosition(position);
        box.setTextCursor(cursor);
        QTest::keyClicks(&box, u"xy"_qs);
    }
    QCOMPARE(box.Text(), u"C\r\né axy\u2029xy\u2029xyb"_qs);
    RichTextBox copy;
    copy.SetTextRTF(box.TextRTF());
    QCOMPARE(copy.Text(), box.Text());
    cursor.setPosition(10);
    box.setTextCursor(cursor);
    QTest::keyClick(&box, Qt::Key_Backspace);
    QCOMPARE(box.Text(), u"C\r\né axy\u2029x\u2029xyb"_qs);
    box.undo();
    box.undo();
    QVERIFY(box.Text().startsWith(u"C\r\né a"));
}

void tst_stand_ins::aStandInIsCopiedAsWhatItStandsFor()
{
    CopyBox box;
    box.SetTextRTF(Render(u"C\r\né a\u2029b\r\nc\u00A0d"_qs));
    box.selectAll();
    const std::unique_ptr<QMimeData> all(box.createMimeDataFromSelection());
    QCOMPARE(all->text(), u"C\né a\u2029b\nc\u00A0d"_qs);
    QTextCursor cursor(box.document());
    cursor.setPosition(5);
    cursor.setPosition(9, QTextCursor::KeepAnchor);
    box.setTextCursor(cursor);
    const std::unique_ptr<QMimeData> some(box.createMimeDataFromSelection());
    QCOMPARE(some->text(), u"\u2029b\nc"_qs);
}

void tst_stand_ins::aLineThatIsTooLongToShapeIsShownInPart()
{
    const QString song = QString(u"C\r\na"_qs + QString(1'000'000, QChar(0x0301)) + u"\r\nDeus"_qs);
    RichTextBox box;
    for (int i = 0; i < 3; ++i) {
        box.SetTextRTF(Render(song, i * 4));
        QVERIFY(box.Text() == song);
    }
    QVERIFY(box.document()->findBlockByNumber(1).length() < 11'000);
    QCOMPARE(box.document()->findBlockByNumber(2).text(), u"Deus"_qs);
    const auto formats = box.document()->allFormats().size();
    box.SetTextRTF(Render(QString(song + u"a\u0301"_qs.repeated(20'000)), 8));
    QVERIFY(box.document()->allFormats().size() <= formats + 1);
    // Letters that need no shaping are all shown.
    box.SetTextRTF(Render(u"C\r\n"_qs + u"Santo é "_qs.repeated(20'000)));
    QCOMPARE(box.document()->findBlockByNumber(1).length(), 160'001);
}

QTEST_MAIN(tst_stand_ins)
#include "tst_stand_ins.moc"
