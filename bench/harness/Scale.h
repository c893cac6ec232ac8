#pragma once

#include <QString>

/// How much is measured. The short form proves that everything runs; its figures mean nothing.
struct Scale
{
    bool isShort = false;
    bool withNaiveSearch = true;
    int songs = 20000;
    int sheetLines = 200;
    int longSheetLines = 2000;

    int Rounds(int usual) const { return isShort ? 1 : usual; }

    /// @return the number of songs as a label of the table: "20 000 songs"
    QString Songs() const
    {
        QString number = QString::number(songs);
        if (number.size() > 4)
            number.insert(number.size() - 3, u' ');
        return number + u" songs";
    }
};
