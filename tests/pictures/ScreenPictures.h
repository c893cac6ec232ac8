#pragma once

#include "controls/FileDialogs.h"
#include "main/frmPrincipal.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>
#include <utility>

class frmVisualizar;

/// What the pictures of every screen are taken with.
namespace Telas {

// Whoever shows no windows to a window manager may wait less.
inline int PaintMs = 400;      ///< a window manager maps, paints and raises within this
inline int CountdownMs = 2100; ///< what a viewer's countdown goes on for before it is shown

class Pictures : public QObject
{
public:
    /// @param folder  exists
    /// @param kind  stands in the files' names behind the screen's size
    explicit Pictures(QString folder, QString kind = {})
        : m_folder(std::move(folder))
        , m_kind(std::move(kind))
    {
    }

    /// Saves what the screen shows once it is painted. A test looks at the screen here instead.
    /// @param name  of the file, without its end
    virtual void Save(const QString& name);

private:
    QString m_folder;
    QString m_kind;
};

/// The main form on a catalogue of our choice instead of the one that config.ini names.
class Principal : public frmPrincipal
{
public:
    explicit Principal(QString catalogue)
        : m_catalogue(std::move(catalogue))
    {
    }

protected:
    void Conecta_Banco() override;

private:
    QString m_catalogue;
};

/// Gives a form the keyboard, as a window manager does with what lies below a closed window.
void BringToFront(QWidget& form);

/// Waits until the search panel shows what it was last asked for.
void WaitForSearch(const QWidget& form);

/// Replaces what the search panel's title box holds and waits for the search.
void Type(QWidget& form, const QString& text);

/// Clicks the control of a name.
void Click(QWidget& form, const QString& name);

/// Clicks and double-clicks a row. @param view  name of the list
void DoubleClick(QWidget& form, const char* view, int row);

/// @param song  MUSICA.ID
/// @return a shown viewer, which deletes itself when closed
frmVisualizar* Open(qint64 song);

/// Waits for a box, however long the store or a search takes before it opens.
void WhenBoxIsOpen(QObject& context, const std::function<void(QDialog&)>& act);

void SaveAndClose(Pictures& pictures, const QString& name, QDialog& box);

/// Does something that opens a box, and takes the box's picture before closing it.
void SaveBox(Pictures& pictures, const QString& name, const std::function<void()>& open);

/// Does something that opens an input box, types into it, and takes the picture of the message box
/// that answers.
void SaveAnswer(Pictures& pictures, const QString& name, const QString& typed,
                const std::function<void()>& open);

/// Always chooses the same place.
class ChosenPlace final : public FileDialogs
{
public:
    explicit ChosenPlace(QString place)
        : m_place(std::move(place))
    {
        SetFileDialogs(this);
    }
    ~ChosenPlace() override { SetFileDialogs(nullptr); }
    QString Choose(QWidget*, const Pedido_Arquivo&) override { return m_place; }

private:
    QString m_place;
};

/// Does something with the first modal window of a kind that comes up while open runs, and closes
/// it. Events run before it does: lists are filled and songs written.
template <typename Window>
void WithWindow(const std::function<void()>& open, const std::function<void(Window&)>& act)
{
    bool came = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        const QPointer<Window> window = qobject_cast<Window*>(QApplication::activeModalWidget());
        if (!window || std::exchange(came, true))
            return;
        act(*window);
        if (window)
            window->close();
    });
    watch.start(0);
    open();
}

} // namespace Telas
