#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

class QAbstractItemView;
class QWidget;

/// A user's hands: real events on what is to be seen and can be used.
namespace Hands {

bool Reachable(const QWidget* widget);

void Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
void DoubleClick(QWidget* widget);
void Press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = {});
void Type(QWidget* widget, const QString& text);
void Paste(QWidget* widget, const QString& text);
/// Takes all out of a text box and types something else.
void Replace(QWidget* widget, const QString& text);

void ClickRow(QAbstractItemView* list, int row, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = {});
void DoubleClickRow(QAbstractItemView* list, int row);

/// Lets the program do what it has to do. For who is in no handler and no box.
void Settle();

/// Lets a timer tick if it is active, without waiting for it.
void Tick(const QWidget* form, const char* timer, int times = 1);

} // namespace Hands
