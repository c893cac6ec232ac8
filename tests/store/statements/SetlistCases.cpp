#include "store/statements/Cases.h"

namespace {

const QString ReadPlaces =
    u"SELECT ID_LISTA, ID_MUSICA, ORDEM FROM LISTA_MUSICA WHERE ID_LISTA = %1 ORDER BY rowid"_qs;

/// The available songs; both pieces behind the category may be missing.
QString Available(int category, const QString& theme, const QString& filter)
{
    QString sql = u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA "_qs +
                  u" FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA " +
                  u" WHERE MUSICA.CATEGORIA = 0" + QString::number(category);
    if (!theme.isEmpty())
        sql += u" AND TEMA_MUSICA.ID_TEMA = 0" + theme;
    if (!filter.isEmpty())
        sql += u" AND MUSICA.titulo like '" + filter + u"%' ";
    return sql + u" ORDER BY MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA ";
}

StatementCases AvailableSongs()
{
    const QStringList fields{u"ID"_qs, u"Expr1001"_qs};
    return {
        {u"available songs, each once"_qs,
         Available(1, {}, {}),
         fields,
         {{u"2"_qs, u"Água Viva - Ana"_qs},
          {u"3"_qs, u"amor - ana"_qs},
          {u"5"_qs, u"Luz - Beto"_qs},
          {u"6"_qs, u"luz - Beto"_qs},
          {u"7"_qs, u"Só - "_qs}},
         {}},
        {u"available songs of the other category"_qs,
         Available(2, {}, {}),
         fields,
         {{u"1"_qs, u"Asa Branca - Tradicional"_qs}, {u"4"_qs, u"D'água - Zé"_qs}},
         {}},
        {u"available songs of a theme"_qs,
         Available(1, u"1"_qs, {}),
         fields,
         {{u"2"_qs, u"Água Viva - Ana"_qs},
          {u"3"_qs, u"amor - ana"_qs},
          {u"6"_qs, u"luz - Beto"_qs}},
         {}},
        {u"available songs of the other category and a theme"_qs,
         Available(2, u"3"_qs, {}),
         fields,
         {{u"1"_qs, u"Asa Branca - Tradicional"_qs}},
         {}},
        {u"available songs that begin with a text"_qs,
         Available(1, {}, u"a"_qs),
         fields,
         {{u"2"_qs, u"Água Viva - Ana"_qs}, {u"3"_qs, u"amor - ana"_qs}},
         {}},
        {u"available songs of the other category that begin with a text"_qs,
         Available(2, {}, u"ASA"_qs),
         fields,
         {{u"1"_qs, u"Asa Branca - Tradicional"_qs}},
         {}},
        {u"wildcards in the filter stay wildcards"_qs,
         Available(1, {}, u"_u%Z"_qs),
         fields,
         {{u"5"_qs, u"Luz - Beto"_qs}, {u"6"_qs, u"luz - Beto"_qs}},
         {}},
        {u"available songs of a theme that begin with a text"_qs,
         Available(1, u"1"_qs, u"lu"_qs),
         fields,
         {{u"6"_qs, u"luz - Beto"_qs}},
         {}},
        {u"available songs of the other category, a theme and a text"_qs,
         Available(2, u"5"_qs, u"d"_qs),
         fields,
         {{u"4"_qs, u"D'água - Zé"_qs}},
         {}},
        {u"no available song"_qs, Available(2, u"1"_qs, {}), fields, {}, {}},
    };
}

StatementCases StoredSetlists()
{
    const QString byId = u"SELECT * FROM LISTA WHERE ID = 0%1"_qs;
    const QString songs =
        u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA,"
        " LISTA_MUSICA.ORDEM "_qs +
        u" FROM MUSICA INNER JOIN LISTA_MUSICA ON MUSICA.ID = LISTA_MUSICA.ID_MUSICA " +
        u" WHERE LISTA_MUSICA.ID_LISTA = 0%1 ORDER BY LISTA_MUSICA.ORDEM ";
    const QStringList lista{u"ID"_qs, u"NOME"_qs, u"DATA"_qs};
    const QStringList entry{u"ID"_qs, u"Expr1001"_qs, u"ORDEM"_qs};
    return {
        {u"stored setlists, newest date first"_qs,
         u"SELECT ID, NOME, Day(DATA) & '/' & Month(DATA) & '/' &  Year(DATA) AS DATA FROM LISTA"
         " ORDER BY DATA DESC"_qs,
         lista,
         {{u"2"_qs, u"Culto"_qs, u"20/1/2010"_qs},
          {u"1"_qs, u"Ensaio"_qs, u"5/3/2009"_qs},
          {u"3"_qs, u"Natal"_qs, u"31/12/2008"_qs},
          {u"4"_qs, u"Sem data"_qs, u"//"_qs}},
         {}},
        {u"a setlist, its date as a date"_qs,
         byId.arg(1),
         lista,
         {{u"1"_qs, u"Ensaio"_qs, u"05/03/2009"_qs}},
         {}},
        {u"a setlist without a date"_qs,
         byId.arg(4),
         lista,
         {{u"4"_qs, u"Sem data"_qs, QString()}},
         {}},
        {u"a setlist that is gone"_qs, byId.arg(9), lista, {}, {}},
        {u"the songs of a setlist, one of them twice"_qs,
         songs.arg(1),
         entry,
         {{u"3"_qs, u"amor - ana"_qs, u"0"_qs},
          {u"1"_qs, u"Asa Branca - Tradicional"_qs, u"1"_qs},
          {u"3"_qs, u"amor - ana"_qs, u"2"_qs}},
         {}},
        {u"the songs of a setlist without those that are gone"_qs,
         songs.arg(3),
         entry,
         {{u"4"_qs, u"D'água - Zé"_qs, u"1"_qs}},
         {}},
        {u"the songs of an empty setlist"_qs, songs.arg(4), entry, {}, {}},
    };
}

StatementCases Savings()
{
    return {
        {u"a setlist stored"_qs,
         u"INSERT INTO LISTA (NOME, DATA)  VALUES ('Sant''Ana', CDATE('29/02/2012'))"_qs,
         {},
         {{u"5"_qs, u"Sant'Ana"_qs, u"2012-02-29"_qs, u"text"_qs}},
         u"SELECT *, typeof(DATA) FROM LISTA WHERE ID > 4"_qs},
        {u"a setlist's song stored"_qs,
         u"INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM)  VALUES (4, 3, 0)"_qs,
         {},
         {{u"4"_qs, u"3"_qs, u"0"_qs}},
         ReadPlaces.arg(4)},
        {u"a setlist's song that is none stored"_qs,
         u"INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM)  VALUES (4, 0, 12)"_qs,
         {},
         {{u"4"_qs, u"0"_qs, u"12"_qs}},
         ReadPlaces.arg(4)},
        {u"a setlist changed"_qs,
         u"UPDATE LISTA SET NOME = 'Ensaio d''hoje', DATA = CDATE('05/12/2011')  WHERE ID = 01"_qs,
         {},
         {{u"1"_qs, u"Ensaio d'hoje"_qs, u"2011-12-05"_qs}},
         u"SELECT * FROM LISTA WHERE ID = 1"_qs},
        {u"a setlist emptied"_qs,
         u"DELETE FROM LISTA_MUSICA WHERE ID_LISTA = 01"_qs,
         {},
         {{u"2,3,3"_qs}},
         u"SELECT group_concat(ID_LISTA) FROM LISTA_MUSICA"_qs},
        {u"a setlist deleted"_qs,
         u"DELETE FROM LISTA WHERE ID = 03"_qs,
         {},
         {{u"1,2,4"_qs}},
         u"SELECT group_concat(ID) FROM LISTA"_qs},
    };
}

} // namespace

StatementCases SetlistCases()
{
    return AvailableSongs() + StoredSetlists() + Savings();
}
