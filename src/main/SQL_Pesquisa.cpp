#include "main/SQL_Pesquisa.h"

#include <QStringList>

namespace {

QString Sem_Apostrofos(QString texto)
{
    return texto.remove(u'\'');
}

QString Lista_Temas(const QList<qint64>& temas)
{
    QStringList numeros;
    for (const qint64 tema : temas)
        numeros.append(QString::number(tema));
    return numeros.join(u',');
}

QString Condicao_Contem(QStringView coluna, const QString& texto)
{
    const QString parte = Sem_Apostrofos(texto);
    if (parte.isEmpty())
        return QString();
    return u" AND MUSICA." % coluna % u" LIKE '%" % parte % u"%' ";
}

QString Condicoes_Caixas(const Pedido_Pesquisa& pedido)
{
    QString condicoes = Condicao_Contem(u"TITULO", pedido.titulo) %
                        Condicao_Contem(u"REFERENCIA", pedido.referencia) %
                        Condicao_Contem(u"MUSICA", pedido.letra);
    if (!pedido.temas.isEmpty())
        condicoes += u" AND TEMA_MUSICA.ID_TEMA IN (" % Lista_Temas(pedido.temas) % u") ";
    return condicoes;
}

} // namespace

QString Lista_Categorias(int religiosa, int secular)
{
    if ((religiosa & secular) != 0)
        return QStringLiteral("1,2");
    if (religiosa != 0)
        return QStringLiteral("1");
    if (secular != 0)
        return QStringLiteral("2");
    return QStringLiteral("1,2");
}

QString Monta_SQL_Pesquisa(const Pedido_Pesquisa& pedido)
{
    QString sql = u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
                  u"MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA "
                  u" FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA "
                  u" WHERE MUSICA.CATEGORIA IN (" %
                  Lista_Categorias(pedido.religiosa, pedido.secular) % u") ";
    if (pedido.inicial.isEmpty())
        sql += Condicoes_Caixas(pedido);
    else
        sql += u" AND MUSICA.TITULO LIKE '" % pedido.inicial % u"%' ";
    sql += pedido.ordenar ? u" ORDER BY MUSICA.CONTADOR DESC, MUSICA.TITULO "
                          : u" ORDER BY MUSICA.TITULO ";
    return sql;
}
