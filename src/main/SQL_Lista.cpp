#include "main/SQL_Lista.h"

QString SQL_Lista::Listas()
{
    return QStringLiteral("SELECT ID, NOME, Day(DATA) & '/' & Month(DATA) & '/' &  Year(DATA) "
                          "AS DATA FROM LISTA ORDER BY DATA DESC");
}

QString SQL_Lista::Lista(const QString& id)
{
    return u"SELECT * FROM LISTA WHERE ID = 0" % id;
}

QString SQL_Lista::Ultima_Lista()
{
    return QStringLiteral("SELECT MAX(ID) AS ID FROM LISTA");
}

QString SQL_Lista::Musicas_Da_Lista(const QString& id)
{
    return u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA, "
           u"LISTA_MUSICA.ORDEM "
           u" FROM MUSICA INNER JOIN LISTA_MUSICA ON MUSICA.ID = LISTA_MUSICA.ID_MUSICA "
           u" WHERE LISTA_MUSICA.ID_LISTA = 0" %
           id % u" ORDER BY LISTA_MUSICA.ORDEM ";
}

QString SQL_Lista::Temas()
{
    return QStringLiteral("SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO");
}

QString SQL_Lista::Musicas_Disponiveis(const Filtro& filtro)
{
    QString sql = u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA "
                  u" FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA "
                  u" WHERE MUSICA.CATEGORIA = 0" %
                  QString::number(filtro.categoria);
    if (!filtro.tema.isEmpty())
        sql += u" AND TEMA_MUSICA.ID_TEMA = 0" % filtro.tema;
    if (!filtro.inicio.isEmpty())
        sql += u" AND MUSICA.titulo like '" % filtro.inicio % u"%' ";
    return sql % u" ORDER BY MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA ";
}

QString SQL_Lista::Inclui_Lista(const QString& nome, const QString& data)
{
    return u"INSERT INTO LISTA (NOME, DATA)  VALUES ('" % nome % u"', CDATE('" % data % u"'))";
}

QString SQL_Lista::Altera_Lista(const QString& id, const QString& nome, const QString& data)
{
    return u"UPDATE LISTA SET NOME = '" % nome % u"', DATA = CDATE('" % data % u"')  WHERE ID = 0" %
           id;
}

QString SQL_Lista::Exclui_Lista(const QString& id)
{
    return u"DELETE FROM LISTA WHERE ID = 0" % id;
}

QString SQL_Lista::Exclui_Musicas(const QString& id)
{
    return u"DELETE FROM LISTA_MUSICA WHERE ID_LISTA = 0" % id;
}

QString SQL_Lista::Inclui_Musica(const QString& id, const QString& musica, int ordem)
{
    return u"INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM)  VALUES (" % id % u", " %
           musica % u", " % QString::number(ordem) % u")";
}
