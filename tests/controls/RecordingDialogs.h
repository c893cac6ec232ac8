#pragma once

#include "controls/Dialogs.h"

#include <QList>

#include <functional>

/// A door that writes down each message box instead of showing it. It puts itself in use and the
/// real boxes back at its end.
class RecordingDialogs final : public Dialogs
{
public:
    struct Box
    {
        QString text;
        Icone icon = Icone::Nenhum;
        QString title;
        QString initial = {};              ///< what an input box came with
        std::optional<QPoint> corner = {}; ///< where an input box was asked to stand
    };

    RecordingDialogs() { SetDialogs(this); }
    ~RecordingDialogs() override { SetDialogs(nullptr); }

    void Message(QWidget*, const QString& text, Icone icon, const QString& title) override
    {
        boxes.append({text, icon, title});
        if (whileOpen)
            whileOpen();
    }

    bool Question(QWidget*, const QString& text, const QString& title) override
    {
        boxes.append({text, Icone::Pergunta, title});
        if (whileOpen)
            whileOpen();
        return answer;
    }

    QString Input(QWidget*, const QString& prompt, const QString& title, const QString& initial,
                  std::optional<QPoint> corner) override
    {
        boxes.append({prompt, Icone::Nenhum, title, initial, corner});
        if (whileOpen)
            whileOpen();
        return typed.isEmpty() ? initial : typed.takeFirst();
    }

    QList<Box> boxes;
    bool answer = true;              ///< to every question
    QStringList typed;               ///< into input boxes, one after the other; else OK at once
    std::function<void()> whileOpen; ///< what happens while a box stands open
};
