#pragma once

#include "pages/PaperSize.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

namespace Pages {

/// A song as it is printed.
struct BookSong
{
    QString title;
    QString reference;
    QString key;  ///< as shown: "Am"
    QString text; ///< lines separated by CR LF
};

struct Book
{
    QString title;
    QString subtitle; ///< may be empty
    QList<BookSong> songs;
};

/// Writes a book: contents with the number of each song's page, which lead there, and each song
/// from the head of a page; a single song needs no contents. The same book makes the same bytes.
/// Needs a QGuiApplication. Reads Notas and Notas_Mais.
/// @param progress  told how many songs are drawn; may be empty
/// @return a PDF document
QByteArray WriteBook(const Book& book, Paper paper,
                     const std::function<void(qsizetype done)>& progress);

} // namespace Pages
