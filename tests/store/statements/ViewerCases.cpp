#include "store/statements/Cases.h"

namespace {

QString SetlistEntries(const QString& list)
{
    return u"SELECT MUSICA.ID, (LISTA_MUSICA.ORDEM+1) & ' - ' & MUSICA.TITULO & ' (' & MUSICA.TOM &"
           " MUSICA.VARIACAO & ') ' & MUSICA.REFERENCIA AS MUS "_qs +
           u" FROM MUSICA " + u" INNER JOIN LISTA_MUSICA ON MUSICA.ID = LISTA_MUSICA.ID_MUSICA " +
           u" WHERE LISTA_MUSICA.ID_LISTA = 0" + list + u" " + u" ORDER BY LISTA_MUSICA.ORDEM ";
}

QString CategoryEntries(const QString& song)
{
    return u"SELECT MUSICA.ID, MUSICA.ID & ' - ' & MUSICA.TITULO & ' (' & MUSICA.TOM &"
           " MUSICA.VARIACAO & ') ' & MUSICA.REFERENCIA AS MUS "_qs +
           u" FROM MUSICA " +
           u" WHERE MUSICA.CATEGORIA IN (SELECT CATEGORIA FROM MUSICA WHERE ID = 0" + song + u")" +
           u" ORDER BY MUSICA.TITULO ";
}

QString Count(const QString& song, const QString& counted)
{
    return u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1"_qs + u" WHERE ID = 0" + song +
           u" AND ID NOT IN (" + counted + u")";
}

} // namespace

StatementCases ViewerCases()
{
    const QStringList fields{u"ID"_qs, u"MUS"_qs};
    const QString readCount = u"SELECT group_concat(CONTADOR) FROM MUSICA"_qs;
    const QString save = u"UPDATE MUSICA SET "_qs + u"TITULO = 'Só isso', " + u"TOM = 'F#', " +
                         u" MUSICA = 'D  A7\r\nSanto d''água', " + u" MUSICA2 = '' " +
                         u" WHERE ID = 01";
    return {
        {u"the entries of a setlist numbered from 1"_qs,
         SetlistEntries(u"1"_qs),
         fields,
         {{u"3"_qs, u"1 - amor (D) ana"_qs},
          {u"1"_qs, u"2 - Asa Branca (Am) Tradicional"_qs},
          {u"3"_qs, u"3 - amor (D) ana"_qs}},
         {}},
        {u"the entries of a setlist keep their numbers where a song is gone"_qs,
         SetlistEntries(u"3"_qs),
         fields,
         {{u"4"_qs, u"2 - D'água (Bb) Zé"_qs}},
         {}},
        {u"the entries of an empty setlist"_qs, SetlistEntries(u"4"_qs), fields, {}, {}},
        {u"the songs of a song's category by title"_qs,
         CategoryEntries(u"2"_qs),
         fields,
         {{u"2"_qs, u"2 - Água Viva (C) Ana"_qs},
          {u"3"_qs, u"3 - amor (D) ana"_qs},
          {u"5"_qs, u"5 - Luz (E) Beto"_qs},
          {u"6"_qs, u"6 - luz (Em) Beto"_qs},
          {u"8"_qs, u"8 - Sem elo (C) Ninguém"_qs},
          {u"7"_qs, u"7 - Só () "_qs}},
         {}},
        {u"the songs of the other category by title"_qs,
         CategoryEntries(u"4"_qs),
         fields,
         {{u"1"_qs, u"1 - Asa Branca (Am) Tradicional"_qs}, {u"4"_qs, u"4 - D'água (Bb) Zé"_qs}},
         {}},
        {u"the category of a song that is gone"_qs, CategoryEntries(u"99"_qs), fields, {}, {}},
        {u"the first play counted"_qs,
         Count(u"2"_qs, u"0"_qs),
         {},
         {{u"12,4,0,0,3,3,0,99"_qs}},
         readCount},
        {u"a play counted after others"_qs,
         Count(u"3"_qs, u"2,45"_qs),
         {},
         {{u"12,3,1,0,3,3,0,99"_qs}},
         readCount},
        {u"a play that was counted already"_qs,
         Count(u"2"_qs, u"1,2"_qs),
         {},
         {{u"12,3,0,0,3,3,0,99"_qs}},
         readCount},
        {u"a song saved in the viewer"_qs,
         save,
         {},
         {{u"1"_qs, u"Só isso"_qs, u"Tradicional"_qs, u"D  A7\r\nSanto d'água"_qs, u""_qs, u"F#"_qs,
           u"m"_qs, u"2"_qs, u"12"_qs}},
         u"SELECT * FROM MUSICA WHERE ID = 1"_qs},
    };
}
