#pragma once

#include <QStringList>

/// What a search asks for; the texts are spliced into the statement as they are.
struct SearchText
{
    QString categories = QStringLiteral("1,2");
    QString letter = {};
    QString title = {};
    QString reference = {};
    QString lyrics = {};
    QString themes = {};
    bool mostPlayedFirst = false;

    /// @return the statement as the search panel writes it
    QString Sql() const
    {
        QString sql = QStringLiteral(
            "SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
            "MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN TEMA_MUSICA "
            "ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE MUSICA.CATEGORIA IN (");
        sql += categories + u") ";
        if (!letter.isEmpty()) {
            sql += u" AND MUSICA.TITULO LIKE '" + letter + u"%' ";
        } else {
            sql += Contains(u"TITULO", title) + Contains(u"REFERENCIA", reference) +
                   Contains(u"MUSICA", lyrics);
            if (!themes.isEmpty())
                sql += u" AND TEMA_MUSICA.ID_TEMA IN (" + themes + u") ";
        }
        return sql + (mostPlayedFirst ? u" ORDER BY MUSICA.CONTADOR DESC, MUSICA.TITULO "
                                      : u" ORDER BY MUSICA.TITULO ");
    }

private:
    static QString Contains(QStringView column, const QString& part)
    {
        if (part.isEmpty())
            return QString();
        return u" AND MUSICA." + column + u" LIKE '%" + part + u"%' ";
    }
};
