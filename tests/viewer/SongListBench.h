#pragma once

#include "ViewerBench.h"
#include "controls/ComboBox.h"

#include <QAbstractItemView>

/// What tests of a viewer's song list share: songs to step through, and the list as a user sees it.
class SongListBench : public ViewerBench
{
public:
    qint64 Song(const QString& title, const QString& key = u"C"_qs,
                const QString& variation = u""_qs, int category = 1) const
    {
        return catalogue.AddSong({.title = title,
                                  .reference = u"Ref. "_qs + title,
                                  .text = u"C\r\nUm "_qs + title,
                                  .text2 = u"C\r\nDois "_qs + title,
                                  .key = key,
                                  .variation = variation,
                                  .category = category});
    }

    /// @return a viewer on a setlist of Rosa (Am), Amar (D) and Luar (Bb)
    QPointer<frmVisualizar> ThreeSongs() const
    {
        const QList<qint64> songs = {Song(u"Rosa"_qs, u"A"_qs, u"m"_qs), Song(u"Amar"_qs, u"D"_qs),
                                     Song(u"Luar"_qs, u"Bb"_qs)};
        return OpenList(catalogue.AddSetlist(u"Domingo"_qs, QDate(2014, 5, 11), songs));
    }
};

inline ComboBox* List(const QWidget* viewer)
{
    return In<ComboBox>(viewer, "cmbLista");
}

inline QStringList Entries(const QWidget* viewer)
{
    QStringList entries;
    for (int i = 0; i < List(viewer)->ListCount(); ++i)
        entries.append(List(viewer)->Text(i));
    return entries;
}

inline QString Title(const QWidget* viewer)
{
    return Caption(viewer, "lblTitulo");
}

/// @return which of the two arrows are to be seen: "<", ">", "<>" or nothing
inline QString Arrows(const QWidget* viewer)
{
    return QString(In(viewer, "cmdAnterior")->isVisible() ? u"<"_qs : QString()) +
           (In(viewer, "cmdProxima")->isVisible() ? u">"_qs : QString());
}

/// Opens the list with the mouse and clicks on an entry.
inline void Choose(const QWidget* viewer, int row)
{
    ComboBox* list = List(viewer);
    QTest::mouseClick(list, Qt::LeftButton);
    QAbstractItemView* popup = list->view();
    QTRY_VERIFY(popup->isVisible());
    // The release of the click that opened the list must not be taken for a choice.
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    const QPoint place = popup->visualRect(popup->model()->index(row, 0)).center();
    QTest::mouseMove(popup->viewport(), place);
    QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, place);
    QTRY_VERIFY(!popup->isVisible());
}

/// Everything that the program hands to the store while it lives.
class Statements : public QStringList
{
public:
    Statements()
    {
        Funcoes::Conexao.SetStatementHook([this](const QString& sql) { append(sql); });
    }
    ~Statements() { Funcoes::Conexao.SetStatementHook({}); }
    Statements(const Statements&) = delete;
    Statements& operator=(const Statements&) = delete;
};
