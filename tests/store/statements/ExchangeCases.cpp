#include "store/statements/Cases.h"

namespace {

/// @param marked  identifiers, each with a comma behind it
QString Review(const QString& marked)
{
    return u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM,"
           " MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA "_qs +
           u" FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA " +
           u" WHERE MUSICA.ID IN (0" + marked + u")";
}

QString Exported(const QString& marked)
{
    return u"SELECT ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA FROM MUSICA"
           " WHERE ID IN (0"_qs +
           marked + u")";
}

StatementCases Exports()
{
    const QStringList review{u"ID"_qs,       u"TITULO"_qs,   u"REFERENCIA"_qs, u"TOM"_qs,
                             u"VARIACAO"_qs, u"CONTADOR"_qs, u"MUSICA"_qs};
    const QStringList exported{u"ID"_qs,      u"TITULO"_qs, u"REFERENCIA"_qs, u"MUSICA"_qs,
                               u"MUSICA2"_qs, u"TOM"_qs,    u"VARIACAO"_qs,   u"CATEGORIA"_qs};
    const QString themes =
        u"SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = TEMA_MUSICA.ID_TEMA WHERE"
        " ID_MUSICA = 0%1"_qs;
    return {
        {u"marked songs to review in the order of their ID"_qs,
         Review(u"5,2,"_qs),
         review,
         {{u"2"_qs, u"Água Viva"_qs, u"Ana"_qs, u"C"_qs, u""_qs, u"3"_qs, u"C\r\nLuz"_qs},
          {u"5"_qs, u"Luz"_qs, u"Beto"_qs, u"E"_qs, u""_qs, u"3"_qs, u"luz"_qs}},
         {}},
        {u"a marked song without a theme is not reviewed"_qs, Review(u"8,"_qs), review, {}, {}},
        {u"marked songs to export"_qs,
         Exported(u"7,4,"_qs),
         exported,
         {{u"4"_qs, u"D'água"_qs, u"Zé"_qs, u"chuva"_qs, QString(), u"Bb"_qs, u""_qs, u"2"_qs},
          {u"7"_qs, u"Só"_qs, QString(), QString(), QString(), QString(), QString(), u"1"_qs}},
         {}},
        {u"one marked song to export"_qs,
         Exported(u"3,"_qs),
         exported,
         {{u"3"_qs, u"amor"_qs, u"ana"_qs, u"SOL"_qs, u"dois"_qs, u"D"_qs, u""_qs, u"1"_qs}},
         {}},
        {u"the themes of an exported song by ID"_qs,
         themes.arg(2),
         {u"DESCRICAO"_qs},
         {{u"Louvor"_qs}, {u"Adoração"_qs}},
         {}},
        {u"the themes of an exported song without any"_qs,
         themes.arg(8),
         {u"DESCRICAO"_qs},
         {},
         {}},
    };
}

StatementCases Imports()
{
    const QString equal = u"SELECT ID FROM MUSICA WHERE TITULO = '%1' AND REFERENCIA = '%2'"_qs;
    const QString theme = u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('%1', %2, '')"_qs;
    const QString insert =
        u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA) "
        "VALUES ('Luz (Importação)', 'd''Ele', 'A\r\nB', '', '', '', -32768)"_qs;
    const QString link =
        u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT %1, ID FROM TEMA WHERE ID IN (%2)"_qs;
    const QString readLinks =
        u"SELECT ID_TEMA FROM TEMA_MUSICA WHERE ID_MUSICA = 8 ORDER BY rowid"_qs;
    const QString readTheme = u"SELECT * FROM TEMA WHERE ID > 6"_qs;
    const QStringList id{u"ID"_qs};
    return {
        {u"an equal song whatever its letter case"_qs,
         equal.arg(u"LUZ"_qs, u"beto"_qs),
         id,
         {{u"5"_qs}, {u"6"_qs}},
         {}},
        {u"an equal song with an apostrophe"_qs,
         equal.arg(u"d''água"_qs, u"Zé"_qs),
         id,
         {{u"4"_qs}},
         {}},
        {u"another accent is another song"_qs, equal.arg(u"Agua Viva"_qs, u"Ana"_qs), id, {}, {}},
        {u"a missing reference equals nothing"_qs, equal.arg(u"Só"_qs, u""_qs), id, {}, {}},
        {u"the theme Sem Tema, smallest ID first"_qs,
         u"SELECT ID FROM TEMA WHERE DESCRICAO = 'Sem Tema'"_qs,
         id,
         {{u"4"_qs}, {u"6"_qs}},
         {}},
        {u"a theme created by an import"_qs,
         theme.arg(u"Sant''Ana"_qs).arg(2),
         {},
         {{u"7"_qs, u"Sant'Ana"_qs, u"2"_qs, u""_qs}},
         readTheme},
        {u"one more Sem Tema"_qs,
         u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('Sem Tema', 3, '')"_qs,
         {},
         {{u"7"_qs, u"Sem Tema"_qs, u"3"_qs, u""_qs}},
         readTheme},
        {u"a song imported"_qs,
         insert,
         {},
         {{u"9"_qs, u"Luz (Importação)"_qs, u"d'Ele"_qs, u"A\r\nB"_qs, u""_qs, u""_qs, u""_qs,
           u"-32768"_qs, u"0"_qs}},
         u"SELECT * FROM MUSICA WHERE ID > 8"_qs},
        {u"an imported song linked to its themes"_qs,
         link.arg(u"8"_qs, u"3,1"_qs),
         {},
         {{u"1"_qs}, {u"3"_qs}},
         readLinks},
        {u"a theme named twice is linked once"_qs,
         link.arg(u"8"_qs, u"3,3"_qs),
         {},
         {{u"3"_qs}},
         readLinks},
        {u"a theme that is gone is not linked"_qs, link.arg(u"8"_qs, u"77"_qs), {}, {}, readLinks},
    };
}

} // namespace

StatementCases ExchangeCases()
{
    return Exports() + Imports();
}
