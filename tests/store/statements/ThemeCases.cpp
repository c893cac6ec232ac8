#include "store/statements/Cases.h"

StatementCases ThemeCases()
{
    const QString byName = u"SELECT ID FROM TEMA WHERE DESCRICAO = '%1'"_qs;
    const QStringList id{u"ID"_qs};
    const QStringList link{u"ID_MUSICA"_qs, u"ID_TEMA"_qs};
    return {
        {u"a theme by its name"_qs, byName.arg(u"Louvor"_qs), id, {{u"1"_qs}}, {}},
        {u"a theme by its name in other letter case"_qs,
         byName.arg(u"ADORAÇÃO"_qs),
         id,
         {{u"2"_qs}},
         {}},
        {u"accents count in a theme's name"_qs, byName.arg(u"Adoracao"_qs), id, {}, {}},
        {u"blanks count in a theme's name"_qs, byName.arg(u"Louvor "_qs), id, {}, {}},
        {u"a theme's name with an apostrophe"_qs, byName.arg(u"D''água"_qs), id, {{u"5"_qs}}, {}},
        {u"an empty theme name"_qs, byName.arg(u""_qs), id, {}, {}},
        {u"a theme added without a colour"_qs,
         u"INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Mãe d''água', 2)"_qs,
         {},
         {{u"7"_qs, u"Mãe d'água"_qs, u"2"_qs, QString()}},
         u"SELECT * FROM TEMA WHERE ID > 6"_qs},
        {u"a theme given another name"_qs,
         u"UPDATE TEMA SET DESCRICAO = 'Louvor d''alma' WHERE ID = 01"_qs,
         {},
         {{u"1"_qs, u"Louvor d'alma"_qs, u"2"_qs, u""_qs}},
         u"SELECT * FROM TEMA WHERE DESCRICAO LIKE 'Louvor%'"_qs},
        {u"the songs of a theme"_qs,
         u"SELECT * FROM TEMA_MUSICA WHERE ID_TEMA = 01"_qs,
         link,
         {{u"2"_qs, u"1"_qs}, {u"3"_qs, u"1"_qs}, {u"6"_qs, u"1"_qs}, {u"99"_qs, u"1"_qs}},
         {}},
        {u"the songs of an unused theme"_qs,
         u"SELECT * FROM TEMA_MUSICA WHERE ID_TEMA = 07"_qs,
         link,
         {},
         {}},
        {u"a theme deleted"_qs,
         u"DELETE FROM TEMA WHERE ID = 02"_qs,
         {},
         {{u"1,3,4,5,6"_qs}},
         u"SELECT group_concat(ID) FROM TEMA"_qs},
    };
}
