#include "store/statements/Cases.h"

#include <QHash>

#include <algorithm>

namespace {

using Ids = QList<int>;

/// One way to fill in the search panel: what the statement holds of it, and whom it lets through.
struct Choice
{
    QString name;
    QString piece;
    Ids songs;
};

const Ids Linked{1, 2, 3, 4, 5, 6, 7};

const QStringList& Fields()
{
    static const QStringList fields{u"ID"_qs,       u"TITULO"_qs,   u"REFERENCIA"_qs, u"TOM"_qs,
                                    u"VARIACAO"_qs, u"CONTADOR"_qs, u"MUSICA"_qs};
    return fields;
}

const QStringList& Shown(int song)
{
    static const QHash<int, QStringList> songs{
        {1,
         {u"1"_qs, u"Asa Branca"_qs, u"Tradicional"_qs, u"A"_qs, u"m"_qs, u"12"_qs,
          u"Am  E\r\nO sol"_qs}},
        {2, {u"2"_qs, u"Água Viva"_qs, u"Ana"_qs, u"C"_qs, u""_qs, u"3"_qs, u"C\r\nLuz"_qs}},
        {3, {u"3"_qs, u"amor"_qs, u"ana"_qs, u"D"_qs, u""_qs, u"0"_qs, u"SOL"_qs}},
        {4, {u"4"_qs, u"D'água"_qs, u"Zé"_qs, u"Bb"_qs, u""_qs, u"0"_qs, u"chuva"_qs}},
        {5, {u"5"_qs, u"Luz"_qs, u"Beto"_qs, u"E"_qs, u""_qs, u"3"_qs, u"luz"_qs}},
        {6, {u"6"_qs, u"luz"_qs, u"Beto"_qs, u"E"_qs, u"m"_qs, u"3"_qs, u"outra luz"_qs}},
        {7, {u"7"_qs, u"Só"_qs, QString(), QString(), QString(), u"0"_qs, QString()}},
    };
    return *songs.constFind(song);
}

Rows Found(const Ids& order, const QList<Choice>& choices)
{
    Rows rows;
    for (const int song : order) {
        const bool passes =
            std::all_of(choices.begin(), choices.end(),
                        [song](const Choice& choice) { return choice.songs.contains(song); });
        if (passes)
            rows.append(Shown(song));
    }
    return rows;
}

/// Every way to fill in the boxes and themes, or a letter, which passes over them.
QList<QList<Choice>> Filters()
{
    const Choice title{u"title"_qs, u" AND MUSICA.TITULO LIKE '%a%' "_qs, {1, 2, 3, 4}};
    const Choice reference{u"reference"_qs, u" AND MUSICA.REFERENCIA LIKE '%a%' "_qs, {1, 2, 3}};
    const Choice lyrics{u"lyrics"_qs, u" AND MUSICA.MUSICA LIKE '%sol%' "_qs, {1, 3}};
    const Choice themes{u"themes"_qs, u" AND TEMA_MUSICA.ID_TEMA IN (3,1) "_qs, {1, 2, 3, 6}};

    QList<QList<Choice>> filters;
    for (unsigned mask = 0; mask < 16; ++mask) {
        QList<Choice> filter;
        if (mask & 1U)
            filter.append(title);
        if (mask & 2U)
            filter.append(reference);
        if (mask & 4U)
            filter.append(lyrics);
        if (mask & 8U)
            filter.append(themes);
        filters.append(filter);
    }
    const QList<Choice> alone{
        {u"letter A"_qs, u" AND MUSICA.TITULO LIKE 'A%' "_qs, {1, 2, 3}},
        {u"letter L"_qs, u" AND MUSICA.TITULO LIKE 'L%' "_qs, {5, 6}},
        {u"one theme"_qs, u" AND TEMA_MUSICA.ID_TEMA IN (3) "_qs, {1, 6}},
        {u"apostrophe dropped"_qs, u" AND MUSICA.TITULO LIKE '%Dagua%' "_qs, {}},
        {u"accent typed"_qs, u" AND MUSICA.TITULO LIKE '%água%' "_qs, {2, 4}},
    };
    for (const Choice& choice : alone)
        filters.append(QList<Choice>{choice});
    return filters;
}

} // namespace

StatementCases SearchCases()
{
    const QList<Choice> categories{{u"both"_qs, u"1,2"_qs, Linked},
                                   {u"Religiosa"_qs, u"1"_qs, {2, 3, 5, 6, 7}},
                                   {u"Secular"_qs, u"2"_qs, {1, 4}}};
    const QList<Choice> orders{
        {u"by title"_qs, u" ORDER BY MUSICA.TITULO "_qs, {2, 3, 1, 4, 5, 6, 7}},
        {u"most played first"_qs,
         u" ORDER BY MUSICA.CONTADOR DESC, MUSICA.TITULO "_qs,
         {1, 2, 5, 6, 3, 4, 7}}};

    StatementCases cases;
    for (const Choice& category : categories) {
        for (const QList<Choice>& filter : Filters()) {
            for (const Choice& order : orders) {
                QString name = u"search " + category.name;
                QString sql =
                    u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM,"
                    " MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA "_qs +
                    u" FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA " +
                    u" WHERE MUSICA.CATEGORIA IN (" + category.piece + u") ";
                for (const Choice& choice : filter) {
                    name += u", " + choice.name;
                    sql += choice.piece;
                }
                cases.append({name + u", " + order.name,
                              sql + order.piece,
                              Fields(),
                              Found(order.songs, QList<Choice>{category} + filter),
                              {}});
            }
        }
    }
    return cases;
}
