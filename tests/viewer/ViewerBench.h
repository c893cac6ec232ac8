#pragma once

#include "controls/RichTextBox.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"
#include "viewer/frmVisualizar.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QTest>

/// A catalogue of one's own with the connection open, and viewers on its songs.
class ViewerBench
{
public:
    ViewerBench()
    {
        Funcoes::Conexao.Open(catalogue.ConnectionString());
        Funcoes::Conexao.CursorLocation = Connection::UseClient;
    }

    ~ViewerBench()
    {
        // A viewer takes popups along that are top-level widgets too.
        QList<frmVisualizar*> viewers;
        for (QWidget* form : QApplication::topLevelWidgets())
            if (auto* viewer = qobject_cast<frmVisualizar*>(form))
                viewers.append(viewer);
        qDeleteAll(viewers);
        if (Funcoes::Conexao.IsOpen())
            Funcoes::Conexao.Close();
    }

    ViewerBench(const ViewerBench&) = delete;
    ViewerBench& operator=(const ViewerBench&) = delete;

    /// @return a viewer that shows the song; it deletes itself when closed
    QPointer<frmVisualizar> Open(qint64 song) const
    {
        auto* viewer = new frmVisualizar;
        viewer->ID_Musica = static_cast<double>(song);
        viewer->Show();
        return viewer;
    }

    QPointer<frmVisualizar> Open(const TestSong& song) const
    {
        return Open(catalogue.AddSong(song));
    }

    /// @return a viewer that plays the setlist
    QPointer<frmVisualizar> OpenList(qint64 setlist) const
    {
        auto* viewer = new frmVisualizar;
        viewer->ID_Lista = static_cast<double>(setlist);
        viewer->Show();
        return viewer;
    }

    TestCatalogue catalogue;
};

/// @return the viewer's control of that name
template <typename Control = QWidget>
Control* In(const QWidget* viewer, const char* name)
{
    auto* control = viewer->findChild<Control*>(QString::fromLatin1(name));
    if (!control)
        qFatal("no control %s", name);
    return control;
}

inline QString Caption(const QWidget* viewer, const char* label)
{
    return In<QLabel>(viewer, label)->text();
}

inline RichTextBox* Box(const QWidget* viewer, int version)
{
    return In<RichTextBox>(viewer, version == 1 ? "RichTextBox_1" : "RichTextBox_2");
}

inline void Click(const QWidget* viewer, const char* control)
{
    QTest::mouseClick(In(viewer, control), Qt::LeftButton);
}

/// @return true when a form was deleted, also by itself a moment later
inline bool Gone(const QPointer<frmVisualizar>& viewer)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return viewer.isNull();
}
