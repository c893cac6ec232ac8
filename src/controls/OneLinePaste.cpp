#include "controls/OneLinePaste.h"

#include "controls/PastedText.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

namespace {

/// @return the first line that is not empty; "" when there is none
QString FirstLine(const QMimeData& source)
{
    const QString text = PastedText(source);
    qsizetype begin = 0;
    while (begin < text.size() && text[begin] == u'\n')
        ++begin;
    const qsizetype end = text.indexOf(u'\n', begin);
    return text.mid(begin, end < 0 ? -1 : end - begin);
}

/// Drops the first line instead of the whole text. @return false where that is the same
bool DropFirstLine(QLineEdit& box, QDropEvent& drop)
{
    const QString line = FirstLine(*drop.mimeData());
    if (line == drop.mimeData()->text())
        return false;
    QMimeData cut;
    cut.setText(line);
    QDropEvent instead(drop.position(), drop.possibleActions(), &cut, drop.buttons(),
                       drop.modifiers());
    instead.setDropAction(drop.dropAction());
    box.event(&instead); // sent the usual way, a drop needs a drag that goes on
    drop.setDropAction(instead.dropAction());
    drop.setAccepted(instead.isAccepted());
    return true;
}

/// Disconnects a menu entry that makes the box paste, whichever way it was connected.
/// @return whether it is that entry
bool TakeFromBox(const QAction& entry, const QLineEdit& box)
{
    return QObject::disconnect(&entry, SIGNAL(triggered()), &box, SLOT(paste())) ||
           QObject::disconnect(&entry, &QAction::triggered, &box, &QLineEdit::paste);
}

} // namespace

OneLinePaste::OneLinePaste(QLineEdit& box)
    : QObject(&box)
    , m_box(box)
{
    box.installEventFilter(this);
}

bool OneLinePaste::eventFilter(QObject*, QEvent* event)
{
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    switch (event->type()) {
    case QEvent::KeyPress:
        return static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste) &&
               Insert(clipboard.mimeData());
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() != Qt::MiddleButton ||
            !clipboard.supportsSelection())
            return false;
        m_box.deselect();
        return Insert(clipboard.mimeData(QClipboard::Selection));
    case QEvent::ContextMenu:
        ShowMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    case QEvent::Drop:
        return DropFirstLine(m_box, *static_cast<QDropEvent*>(event));
    default:
        return false;
    }
}

/// @return false where the box itself may paste: it would do the same
bool OneLinePaste::Insert(const QMimeData* source)
{
    if (m_box.isReadOnly() || !source)
        return false;
    const QString line = FirstLine(*source);
    if (line == source->text())
        return false;
    if (!line.isEmpty())
        m_box.insert(line);
    return true;
}

void OneLinePaste::ShowMenu(const QPoint& onScreen)
{
    QMenu* menu = m_box.createStandardContextMenu();
    if (!menu)
        return;
    const auto entries = menu->actions();
    for (const QAction* entry : entries) {
        if (!TakeFromBox(*entry, m_box))
            continue;
        connect(entry, &QAction::triggered, this, [this] {
            if (!Insert(QGuiApplication::clipboard()->mimeData()))
                m_box.paste();
        });
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(onScreen);
}
