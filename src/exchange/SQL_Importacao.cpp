#include "exchange/SQL_Importacao.h"

QString SQL_Musica_Igual(const Musica_Preparada& musica)
{
    return u"SELECT ID FROM MUSICA WHERE TITULO = '" % musica.titulo % u"' AND REFERENCIA = '" %
           musica.referencia % u"'";
}

QString SQL_Insere_Musica(const Musica_Preparada& musica)
{
    return u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA) "
           u"VALUES ('" %
           musica.titulo % u"', '" % musica.referencia % u"', '" % musica.letra1 % u"', '" %
           musica.letra2 % u"', '" % musica.tom % u"', '" % musica.variacao % u"', " %
           QString::number(musica.categoria) % u")";
}

QString SQL_Tema_Igual(const QString& descricao)
{
    return u"SELECT ID FROM TEMA WHERE DESCRICAO = '" % descricao % u"'";
}

QString SQL_Insere_Tema(const QString& descricao, int ordem)
{
    return u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('" % descricao % u"', " %
           QString::number(ordem) % u", '')";
}

QString SQL_Liga_Temas(const QString& id, const QString& temas)
{
    return u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT " % id %
           u", ID FROM TEMA WHERE ID IN (" % temas % u")";
}
