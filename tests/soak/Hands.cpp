#include "Hands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>

bool Hands::Reachable(const QWidget* widget)
{
    return widget && widget->isVisible() && widget->isEnabled();
}

void Hands::Click(QWidget* widget, Qt::MouseButton button)
{
    // A check box takes clicks on its mark and text alone.
    const QPoint place(qMin(12, widget->width() / 2), widget->height() / 2);
    QTest::mouseClick(widget, button, {}, place);
}

void Hands::DoubleClick(QWidget* widget)
{
    const QPointer<QWidget> there(widget);
    Click(widget);
    if (there)
        QTest::mouseDClick(widget, Qt::LeftButton);
}

void Hands::Press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(widget, static_cast<Qt::Key>(key), modifiers);
}

void Hands::Type(QWidget* widget, const QString& text)
{
    const QPointer<QWidget> there(widget);
    for (const QChar letter : text) {
        if (!there)
            return;
        // Letters that no key of the test library has come as they do from any keyboard.
        if (letter == u'\n')
            QTest::keyClick(widget, Qt::Key_Return);
        else
            QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(letter),
                                Qt::NoModifier);
    }
}

void Hands::Paste(QWidget* widget, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
}

void Hands::Replace(QWidget* widget, const QString& text)
{
    const QPointer<QWidget> there(widget);
    Click(widget);
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(widget, Qt::Key_Delete);
    if (there)
        Type(widget, text);
}

void Hands::ClickRow(QAbstractItemView* list, int row, Qt::MouseButton button,
                     Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    QTest::mouseClick(list->viewport(), button, modifiers, list->visualRect(index).center());
}

void Hands::DoubleClickRow(QAbstractItemView* list, int row)
{
    const QPointer<QAbstractItemView> there(list);
    ClickRow(list, row);
    if (!there || row >= list->model()->rowCount())
        return;
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                       list->visualRect(list->model()->index(row, 0)).center());
}

void Hands::Settle()
{
    constexpr int Rounds = 3;
    for (int i = 0; i < Rounds; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void Hands::Tick(const QWidget* form, const char* timer, int times)
{
    const QPointer<QTimer> found = form->findChild<QTimer*>(QString::fromLatin1(timer));
    for (int i = 0; i < times && found && found->isActive(); ++i) {
        QTimerEvent tick(found->timerId());
        QCoreApplication::sendEvent(found, &tick);
    }
}
