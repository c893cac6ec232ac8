#pragma once

#include <QDialog>
#include <QKeyEvent>

/// Keeps a key that is still held down from answering the box that its press has opened.
class HeldKeys final : public QObject
{
public:
    enum Which { EveryKey, Enter };

    /// @param box  the owner; what it is made of is all there
    HeldKeys(QDialog& box, Which which)
        : QObject(&box)
        , m_which(which)
    {
        box.installEventFilter(this);
        const auto parts = box.findChildren<QWidget*>();
        for (QWidget* part : parts)
            part->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        // Accepting the first of the two keeps the key from being taken as an access key.
        if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
            return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (!key->isAutoRepeat() || (m_which == Enter && !enter))
            return false;
        event->accept();
        return true;
    }

private:
    Which m_which;
};
