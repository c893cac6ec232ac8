#pragma once

#include "Ticks.h"

#include "controls/ComboBox.h"

#include <QKeyEvent>
#include <QMap>
#include <QScrollBar>
#include <QTextBlock>

struct Key
{
    int key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

/// What can be seen of a viewer, by name.
inline QMap<QString, QString> Look(const QPointer<frmVisualizar>& viewer)
{
    if (!viewer || !viewer->isVisible())
        return {};
    const RichTextBox* box = Box(viewer, Box(viewer, 1)->isVisible() ? 1 : 2);
    QTextCursor cursor(box->document());
    cursor.setPosition(1);
    const QScrollBar* bar = box->verticalScrollBar();
    const auto* timer = In<QTimer>(viewer, "TimerRolagem");
    return {
        {u"key"_qs, Caption(viewer, "lblTom")},
        {u"version"_qs, Caption(viewer, "lblVersao")},
        {u"points"_qs, QString::number(cursor.charFormat().fontPointSize())},
        {u"lines"_qs, QString::number(box->document()->blockCount())},
        {u"song"_qs, QString::number(In<ComboBox>(viewer, "cmbLista")->ListIndex())},
        {u"position"_qs,
         bar->value() == bar->maximum() ? u"the end"_qs : QString::number(bar->value())},
        {u"scrolls"_qs, timer->isActive() ? u"yes"_qs : u"no"_qs},
        {u"speed"_qs, timer->property("Tag").toString()},
        {u"edits"_qs, In(viewer, "cmdSalvar")->isVisible() ? u"yes"_qs : u"no"_qs},
    };
}

/// @return what differs, in alphabetical order
inline QString Difference(const QMap<QString, QString>& before, const QMap<QString, QString>& after)
{
    if (after.isEmpty())
        return u"closed"_qs;
    QStringList changes;
    for (auto it = after.begin(); it != after.end(); ++it)
        if (before.value(it.key()) != it.value())
            changes += QString(it.key() + u' ' + it.value());
    return changes.join(u", "_qs);
}

inline void Send(QWidget* receiver, const Key& key, bool repeated = false)
{
    QKeyEvent press(QEvent::KeyPress, key.key, key.modifiers, QString(), repeated);
    QApplication::sendEvent(receiver, &press);
}

/// A viewer to try keys on, where each of them changes something.
class KeyBench : public ViewerBench
{
public:
    KeyBench()
    {
        QList<qint64> songs;
        for (const QString& title : {u"Um"_qs, u"Dois"_qs, u"Três"_qs})
            songs +=
                catalogue.AddSong({.title = title, .text = LongSong(120), .text2 = LongSong(120)});
        m_setlist = catalogue.AddSetlist(u"Missa"_qs, {}, songs);
    }

    /// @return a viewer on the second of three songs, a semitone up, 300 pixels down, scrolling
    QPointer<frmVisualizar> Prepared()
    {
        auto viewer = OpenList(m_setlist);
        QTest::keyClick(viewer.data(), Qt::Key_P);
        QTest::keyClick(viewer.data(), Qt::Key_S);
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(viewer.data(), Qt::Key_Down);
        QTest::keyClick(viewer.data(), Qt::Key_Return);
        return viewer;
    }

private:
    qint64 m_setlist = 0;
};
