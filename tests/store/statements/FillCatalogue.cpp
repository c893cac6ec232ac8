#include "store/statements/Cases.h"
#include "support/TestCatalogue.h"

/// Titles alike but for letter case, accents, apostrophes and NULL; songs with one theme, two or
/// none; links to a song that is gone; a theme name twice; setlists with a song twice, with a song
/// that is gone, without a date.
void FillCatalogue(const TestCatalogue& catalogue)
{
    catalogue.Run(uR"(
INSERT INTO MUSICA (ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA, CONTADOR)
VALUES (1, 'Asa Branca', 'Tradicional', 'Am  E' || char(13, 10) || 'O sol', 'dois', 'A', 'm', 2, 12),
       (2, 'Água Viva', 'Ana', 'C' || char(13, 10) || 'Luz', '', 'C', '', 1, 3),
       (3, 'amor', 'ana', 'SOL', 'dois', 'D', '', 1, 0),
       (4, 'D''água', 'Zé', 'chuva', NULL, 'Bb', '', 2, 0),
       (5, 'Luz', 'Beto', 'luz', 'dois', 'E', '', 1, 3),
       (6, 'luz', 'Beto', 'outra luz', 'dois', 'E', 'm', 1, 3),
       (7, 'Só', NULL, NULL, NULL, NULL, NULL, 1, 0),
       (8, 'Sem elo', 'Ninguém', 'sol', 'dois', 'C', '', 1, 99);
INSERT INTO TEMA (ID, DESCRICAO, ORDEM, COR)
VALUES (1, 'Louvor', 2, ''), (2, 'Adoração', 2, NULL), (3, 'Natal', 1, 'azul'),
       (4, 'Sem Tema', 3, ''), (5, 'D''água', 2, ''), (6, 'Sem Tema', 3, '');
INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)
VALUES (6, 3), (2, 2), (2, 1), (1, 3), (3, 1), (4, 5), (5, 4), (6, 1), (7, 6), (99, 1);
INSERT INTO LISTA (ID, NOME, DATA)
VALUES (1, 'Ensaio', '2009-03-05'), (2, 'Culto', '2010-01-20'), (3, 'Natal', '2008-12-31'),
       (4, 'Sem data', NULL);
INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM)
VALUES (1, 1, 1), (1, 3, 0), (1, 3, 2), (2, 2, 0), (3, 99, 0), (3, 4, 1);
)"_qs);
}
