#pragma once

#include "PesquisaTeste.h"

#include "controls/RecordingFileDialogs.h"

#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QToolBar>

/// What tests of the import share: exchange files of their own, the picker's answer, and what lies
/// in the catalogue afterwards.
class ImportarTeste : public PesquisaTeste
{
    Q_OBJECT

protected:
    static QString Musica_Xml(const QString& titulo, const QString& temas,
                              const QString& resto = {})
    {
        return u"<musica><titulo>%1</titulo><referencia>Ana</referencia><letra1>C[br]a</letra1>"
               "<letra2>D[br]b</letra2><tom>C</tom><variacao>m</variacao><categoria>1</categoria>"
               "<temas>%2</temas>%3</musica>"_qs.arg(titulo, temas, resto);
    }
    static QString Tema_Xml(const QString& nome)
    {
        return u"<descricao>%1</descricao>"_qs.arg(nome);
    }

    /// Writes an exchange file. @return its path
    QString Arquivo(const QString& musicas, const QString& nome = u"a.mld"_qs) const
    {
        QFile arquivo(m_pasta.filePath(nome));
        if (!arquivo.open(QIODevice::WriteOnly))
            qFatal("no exchange file");
        arquivo.write((u"<musicas>"_qs + musicas + u"</musicas>"_qs).toUtf8());
        return arquivo.fileName();
    }

    void Carrega_Importar()
    {
        Carrega();
        Funcoes::Conexao.SetStatementHook([this](const QString& sql) { m_comandos.append(sql); });
        m_comandos.clear();
        m_caixas->boxes.clear();
    }

    /// Chooses a file in the menu's picker.
    void Importa(const QString& caminho)
    {
        RecordingFileDialogs escolhas;
        if (!caminho.isEmpty())
            escolhas.chosen = {caminho};
        QMenuBar* menu = m_form->menuBar();
        QTest::mouseClick(menu, Qt::LeftButton, {},
                          menu->actionGeometry(Acha<QAction>("mnuImportar")).center());
        m_pedidos = escolhas.requests;
    }

    QStringList Caixas() const
    {
        static const QStringList icones{u"-"_qs, u"X"_qs, u"?"_qs, u"!"_qs, u"i"_qs};
        QStringList textos;
        for (const auto& caixa : m_caixas->boxes)
            textos.append(icones.at(static_cast<int>(caixa.icon)) + u' ' + caixa.text);
        return textos;
    }

    /// @return each song as title|reference|text|second text|key|variation|category|count|themes
    QStringList Musicas() const
    {
        QStringList linhas;
        const auto rows = m_catalogo->Rows(
            u"SELECT TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA, CONTADOR, "
            "(SELECT group_concat(DESCRICAO || ':' || ORDEM || ':' || COALESCE(COR, 'NULL')) FROM "
            "(SELECT * FROM TEMA JOIN TEMA_MUSICA ON TEMA.ID = ID_TEMA WHERE ID_MUSICA = "
            "MUSICA.ID ORDER BY TEMA.ID)) FROM MUSICA ORDER BY ID"_qs);
        for (const QStringList& row : rows)
            linhas.append(row.join(u'|'));
        return linhas;
    }

    QString Um(const QString& sql) const { return m_catalogo->Field(sql); }

    QTemporaryDir m_pasta;
    QStringList m_comandos;
    QList<Pedido_Arquivo> m_pedidos;
};
