#include "CatalogoAntigo.h"

#include "runtime/RuntimeError.h"
#include "store/Connection.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

namespace {

const QString Pasta = QStringLiteral(MELODARIO_SOURCE_DIR "/tests/jet/dados/");

QByteArray Le(const QString& caminho)
{
    QFile arquivo(caminho);
    if (!arquivo.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", qPrintable(caminho));
    return arquivo.readAll();
}

const QList<std::pair<QString, QStringList>>& Tabelas()
{
    static const QList<std::pair<QString, QStringList>> tabelas = {
        {u"MUSICA"_qs,
         {u"ID"_qs, u"TITULO"_qs, u"REFERENCIA"_qs, u"MUSICA"_qs, u"MUSICA2"_qs, u"TOM"_qs,
          u"VARIACAO"_qs, u"CATEGORIA"_qs, u"CONTADOR"_qs}},
        {u"TEMA"_qs, {u"ID"_qs, u"DESCRICAO"_qs, u"ORDEM"_qs, u"COR"_qs}},
        {u"TEMA_MUSICA"_qs, {u"ID_MUSICA"_qs, u"ID_TEMA"_qs}},
        {u"LISTA"_qs, {u"ID"_qs, u"NOME"_qs, u"DATA"_qs}},
        {u"LISTA_MUSICA"_qs, {u"ID_LISTA"_qs, u"ID_MUSICA"_qs, u"ORDEM"_qs}},
        {u"TOM"_qs, {u"ID"_qs, u"NOTA"_qs, u"ORDEM"_qs, u"MAIS"_qs}},
        {u"VARIACAO"_qs, {u"ID"_qs, u"NOMENCLATURA"_qs}},
    };
    return tabelas;
}

const QJsonObject& Esperado()
{
    static const QJsonObject esperado =
        QJsonDocument::fromJson(Le(Pasta + u"catalogo-antigo.json")).object();
    return esperado;
}

/// A field as its type and its bytes: nothing that two fields differ in gets lost.
QString Campo(const QJsonValue& valor)
{
    if (valor.isNull())
        return u"null"_qs;
    if (valor.isString())
        return u"text "_qs + QString::fromLatin1(valor.toString().toUtf8().toHex().toUpper());
    return u"integer "_qs + QString::number(valor.toInteger());
}

QString Seleciona(const std::pair<QString, QStringList>& tabela)
{
    QStringList campos;
    for (const QString& coluna : tabela.second)
        campos += u"CASE typeof(%1) WHEN 'null' THEN 'null' WHEN 'text' THEN 'text ' || hex(%1) "
                  "ELSE typeof(%1) || ' ' || %1 END"_qs.arg(coluna);
    return u"SELECT "_qs + campos.join(u", ") + u" FROM " + tabela.first;
}

QStringList LinhasDe(const QString& catalogo, const std::pair<QString, QStringList>& tabela)
{
    QStringList linhas;
    for (const QStringList& linha : PlainSqlite(catalogo).Rows(Seleciona(tabela)))
        linhas += linha.join(u" | ");
    return linhas;
}

QStringList LinhasEsperadasDe(const std::pair<QString, QStringList>& tabela)
{
    QStringList linhas;
    const QJsonArray esperadas = Esperado()[tabela.first].toArray();
    for (const QJsonValue linha : esperadas) {
        QStringList campos;
        for (const QString& coluna : tabela.second)
            campos += Campo(linha.toObject()[coluna]);
        linhas += campos.join(u" | ");
    }
    return linhas;
}

void Compara(const QString& tabela, QStringList ha, QStringList deve, QStringList& diferencas)
{
    std::sort(ha.begin(), ha.end());
    std::sort(deve.begin(), deve.end());
    QStringList sobram;
    QStringList faltam;
    std::set_difference(ha.begin(), ha.end(), deve.begin(), deve.end(), std::back_inserter(sobram));
    std::set_difference(deve.begin(), deve.end(), ha.begin(), ha.end(), std::back_inserter(faltam));
    for (const QString& linha : std::as_const(sobram))
        diferencas += u"+ "_qs + tabela + u": " + linha.left(200);
    for (const QString& linha : std::as_const(faltam))
        diferencas += u"- "_qs + tabela + u": " + linha.left(200);
}

} // namespace

QString CatalogoAntigo::Caminho()
{
    return Pasta + u"catalogo-antigo.mdb";
}

QByteArray CatalogoAntigo::Conteudo()
{
    return Le(Caminho());
}

QByteArray CatalogoAntigo::SemTabela(const char* nome)
{
    // In the list of tables a name stands behind zeros and before what is no letter.
    QByteArray procurado(4, '\0');
    for (const char* letra = nome; *letra != '\0'; ++letra)
        procurado += QByteArray(1, *letra) + '\0';
    QByteArray conteudo = Conteudo();
    int mudadas = 0;
    for (qsizetype em = conteudo.indexOf(procurado); em >= 0;
         em = conteudo.indexOf(procurado, em + 1)) {
        const qsizetype fim = em + procurado.size();
        if (conteudo[fim + 1] == '\0')
            continue; // a longer name
        conteudo[fim - 2] = 'X';
        ++mudadas;
    }
    if (mudadas != 1)
        qFatal("%d tables %s", mudadas, nome);
    return conteudo;
}

QStringList CatalogoAntigo::Diferencas(const QString& catalogo)
{
    QStringList diferencas;
    for (const auto& tabela : Tabelas())
        Compara(tabela.first, LinhasDe(catalogo, tabela), LinhasEsperadasDe(tabela), diferencas);
    const QJsonObject numeros = Esperado()[u"AUTONUMERACAO"_qs].toObject();
    for (auto numero = numeros.begin(); numero != numeros.end(); ++numero) {
        const auto linhas = PlainSqlite(catalogo).Rows(
            u"SELECT seq FROM sqlite_sequence WHERE name = ?"_qs, {numero.key()});
        if (linhas != QList<QStringList>{{QString::number(numero.value().toInteger())}})
            diferencas += u"last number of "_qs + numero.key();
    }
    return diferencas;
}

QString CatalogoAntigo::Linhas(const QString& catalogo)
{
    QStringList linhas;
    for (const auto& tabela : Tabelas())
        linhas += tabela.first + u' ' +
                  PlainSqlite(catalogo).Rows(u"SELECT COUNT(*) FROM "_qs + tabela.first)[0][0];
    return linhas.join(u' ');
}

QString CatalogoAntigo::LinhasEsperadas()
{
    QStringList linhas;
    for (const auto& tabela : Tabelas())
        linhas += tabela.first + u' ' + QString::number(Esperado()[tabela.first].toArray().size());
    return linhas.join(u' ');
}

QString CatalogoAntigo::Estado(const QString& catalogo)
{
    try {
        Connection conexao;
        conexao.Open(TestCatalogue::ConnectionString(catalogo));
    } catch (const RuntimeError& erro) {
        return erro.WhatFailed();
    }
    const auto linhas = PlainSqlite(catalogo).Rows(u"PRAGMA integrity_check"_qs);
    return linhas == QList<QStringList>{{u"ok"_qs}} ? u"sound"_qs : linhas[0][0];
}
