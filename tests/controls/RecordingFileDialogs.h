#pragma once

#include "controls/FileDialogs.h"

#include <QList>
#include <QStringList>

#include <functional>

/// A door that writes down what each picker was asked to be and gives prepared answers. It puts
/// itself in use and the real pickers back at its end.
class RecordingFileDialogs final : public FileDialogs
{
public:
    RecordingFileDialogs() { SetFileDialogs(this); }
    ~RecordingFileDialogs() override { SetFileDialogs(nullptr); }

    QString Choose(QWidget*, const Pedido_Arquivo& pedido) override
    {
        requests.append(pedido);
        if (whileOpen)
            whileOpen();
        return chosen.isEmpty() ? QString() : chosen.takeFirst();
    }

    QList<Pedido_Arquivo> requests;
    QStringList chosen;              ///< one after the other; then every picker is cancelled
    std::function<void()> whileOpen; ///< what happens while a picker stands open
};
