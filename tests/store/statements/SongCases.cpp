#include "store/statements/Cases.h"

namespace {

const QString ReadSong = u"SELECT ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO,"
                         " CATEGORIA, CONTADOR, typeof(CATEGORIA) FROM MUSICA WHERE ID = %1"_qs;

const QString ReadLinks = u"SELECT ID_MUSICA, ID_TEMA FROM TEMA_MUSICA ORDER BY rowid"_qs;

StatementCases Readings()
{
    const QStringList musica{u"ID"_qs,       u"TITULO"_qs,    u"REFERENCIA"_qs,
                             u"MUSICA"_qs,   u"MUSICA2"_qs,   u"TOM"_qs,
                             u"VARIACAO"_qs, u"CATEGORIA"_qs, u"CONTADOR"_qs};
    const QString song = u"SELECT * FROM MUSICA WHERE ID = 0%1"_qs;
    return {
        {u"a song"_qs,
         song.arg(1),
         musica,
         {{u"1"_qs, u"Asa Branca"_qs, u"Tradicional"_qs, u"Am  E\r\nO sol"_qs, u"dois"_qs, u"A"_qs,
           u"m"_qs, u"2"_qs, u"12"_qs}},
         {}},
        {u"a song full of NULLs"_qs,
         song.arg(7),
         musica,
         {{u"7"_qs, u"Só"_qs, QString(), QString(), QString(), QString(), QString(), u"1"_qs,
           u"0"_qs}},
         {}},
        {u"a song that is gone"_qs, song.arg(99), musica, {}, {}},
        {u"no song"_qs, song.arg(u""_qs), musica, {}, {}},
        {u"the links of a song in their places"_qs,
         u"SELECT * FROM TEMA_MUSICA WHERE ID_MUSICA = 02"_qs,
         {u"ID_MUSICA"_qs, u"ID_TEMA"_qs},
         {{u"2"_qs, u"2"_qs}, {u"2"_qs, u"1"_qs}},
         {}},
    };
}

StatementCases Savings()
{
    const QString update =
        u"UPDATE MUSICA SET TITULO = 'D''água; --', REFERENCIA = 'Zé \"da\" [Ilha] %_', MUSICA ="
        " 'C  G7\r\nSanto', MUSICA2 = '', TOM = 'C#', VARIACAO = 'm', CATEGORIA = 1 WHERE ID ="
        " 04"_qs;
    const QString insert =
        u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA) "
        " VALUES ('Dia d''água', 'É', 'letra\r\n', 'letra\r\n', 'F#', '', 2)"_qs;
    return {
        {u"a song changed"_qs,
         update,
         {},
         {{u"4"_qs, u"D'água; --"_qs, u"Zé \"da\" [Ilha] %_"_qs, u"C  G7\r\nSanto"_qs, u""_qs,
           u"C#"_qs, u"m"_qs, u"1"_qs, u"0"_qs, u"integer"_qs}},
         ReadSong.arg(4)},
        {u"a song entered, never played"_qs,
         insert,
         {},
         {{u"9"_qs, u"Dia d'água"_qs, u"É"_qs, u"letra\r\n"_qs, u"letra\r\n"_qs, u"F#"_qs, u""_qs,
           u"2"_qs, u"0"_qs, u"integer"_qs}},
         ReadSong.arg(9)},
        {u"the links of a song removed"_qs,
         u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 02"_qs,
         {},
         {{u"6"_qs, u"3"_qs},
          {u"1"_qs, u"3"_qs},
          {u"3"_qs, u"1"_qs},
          {u"4"_qs, u"5"_qs},
          {u"5"_qs, u"4"_qs},
          {u"6"_qs, u"1"_qs},
          {u"7"_qs, u"6"_qs},
          {u"99"_qs, u"1"_qs}},
         ReadLinks},
        {u"a link made"_qs,
         u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (8, 3)"_qs,
         {},
         {{u"8"_qs, u"3"_qs}},
         u"SELECT * FROM TEMA_MUSICA WHERE ID_MUSICA = 8"_qs},
        {u"a link to theme 0 made"_qs,
         u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (8, 0)"_qs,
         {},
         {{u"8"_qs, u"0"_qs}},
         u"SELECT * FROM TEMA_MUSICA WHERE ID_MUSICA = 8"_qs},
        {u"a song deleted, its place in setlists kept"_qs,
         u"DELETE FROM MUSICA WHERE ID = 03"_qs,
         {},
         {{u"0"_qs, u"2"_qs}},
         u"SELECT (SELECT count(*) FROM MUSICA WHERE ID = 3), (SELECT count(*) FROM LISTA_MUSICA"
         " WHERE ID_MUSICA = 3)"_qs},
        {u"no song deleted"_qs,
         u"DELETE FROM MUSICA WHERE ID = 00"_qs,
         {},
         {{u"8"_qs}},
         u"SELECT count(*) FROM MUSICA"_qs},
    };
}

StatementCases Suggestions()
{
    const QString titles = u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA WHERE TITULO LIKE"
                           " '%1%' ORDER BY TITULO & ' - ' & REFERENCIA"_qs;
    const QString references =
        u"SELECT DISTINCT 1, REFERENCIA FROM MUSICA WHERE REFERENCIA LIKE '%1%' ORDER BY"
        " REFERENCIA"_qs;
    const QStringList title{u"ID"_qs, u"Expr1001"_qs};
    const QStringList reference{u"Expr1000"_qs, u"REFERENCIA"_qs};
    return {
        {u"titles that begin with a letter"_qs,
         titles.arg(u"a"_qs),
         title,
         {{u"2"_qs, u"Água Viva - Ana"_qs},
          {u"3"_qs, u"amor - ana"_qs},
          {u"1"_qs, u"Asa Branca - Tradicional"_qs}},
         {}},
        {u"titles alike but for letter case by ID"_qs,
         titles.arg(u"LUZ"_qs),
         title,
         {{u"5"_qs, u"Luz - Beto"_qs}, {u"6"_qs, u"luz - Beto"_qs}},
         {}},
        {u"a title with an apostrophe, doubled"_qs,
         titles.arg(u"D''"_qs),
         title,
         {{u"4"_qs, u"D'água - Zé"_qs}},
         {}},
        {u"a title without a reference"_qs,
         titles.arg(u"Só"_qs),
         title,
         {{u"7"_qs, u"Só - "_qs}},
         {}},
        {u"a title that nobody has"_qs, titles.arg(u"xyz"_qs), title, {}, {}},
        {u"a reference once, spelled as first entered"_qs,
         references.arg(u"An"_qs),
         reference,
         {{u"1"_qs, u"Ana"_qs}},
         {}},
        {u"all references, without the missing one"_qs,
         references.arg(u""_qs),
         reference,
         {{u"1"_qs, u"Ana"_qs},
          {u"1"_qs, u"Beto"_qs},
          {u"1"_qs, u"Ninguém"_qs},
          {u"1"_qs, u"Tradicional"_qs},
          {u"1"_qs, u"Zé"_qs}},
         {}},
    };
}

} // namespace

StatementCases SongCases()
{
    return Readings() + Savings() + Suggestions();
}
