#include "exchange/SQL_Exportacao.h"

QString SQL_Musicas_Marcadas(const QString& lista)
{
    return u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
           "MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA "
           " FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA "
           " WHERE MUSICA.ID IN (0" %
           lista % u')';
}

QString SQL_Musicas_Exportadas(const QString& lista)
{
    return u"SELECT ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA FROM MUSICA "
           "WHERE ID IN (0" %
           lista % u')';
}

QString SQL_Temas_Exportados(const QString& id)
{
    return u"SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = TEMA_MUSICA.ID_TEMA "
           "WHERE ID_MUSICA = 0" %
           id;
}
