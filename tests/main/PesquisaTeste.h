#pragma once

#include "FormularioTeste.h"

#include "controls/ListBox.h"
#include "controls/ListaMusicas.h"
#include "main/PainelPesquisa.h"

#include <QLabel>

/// What tests of the search panel share: a catalogue with the themes "Louvor" (1) and "Outro" (2),
/// the user's hands and eyes, and the searches as they were handed to the store.
class PesquisaTeste : public FormularioTeste
{
    Q_OBJECT

protected:
    /// Adds a song with the theme "Louvor" and others. @return MUSICA.ID
    qint64 Musica(const QString& titulo, const QList<qint64>& temas = {},
                  const TestSong& outros = {}) const
    {
        TestSong musica = outros;
        musica.title = titulo;
        const qint64 id = m_catalogo->AddSong(musica);
        m_catalogo->Link(id, m_tema);
        for (const qint64 tema : temas)
            m_catalogo->Link(id, tema);
        return id;
    }

    void Carrega()
    {
        QVERIFY(Mostra_Formulario());
        m_lista = Acha<ListaMusicas>("lstMusicas");
        Funcoes::Conexao.SetStatementHook([this](const QString& sql) {
            if (sql.startsWith(u"SELECT DISTINCT MUSICA.ID"))
                m_pesquisas.append(sql);
        });
        // The first search at once.
        Acha<PainelPesquisa>("pctFrame_0")->Pesquisa();
        m_form->chamadas.clear();
        m_pesquisas.clear();
    }

    void Espera_Pesquisa()
    {
        QTRY_VERIFY(!Acha<QTimer>("Timer1")->isActive());
        QTRY_VERIFY(Contagem().endsWith(u" Registro(s) Encontrado(s)."));
    }

    void Clica(const char* controle)
    {
        auto* caixa = Acha<QWidget>(controle);
        QTest::mouseClick(caixa, Qt::LeftButton, {}, QPoint(12, caixa->height() / 2));
    }

    void Clica_Letra(int indice)
    {
        QTest::mouseClick(Acha<QWidget>(qPrintable(u"lblAlfa_%1"_qs.arg(indice))), Qt::LeftButton);
    }

    void Clica_Tema(int indice)
    {
        auto* temas = Acha<ListBox>("lstTema");
        temas->scrollTo(temas->model()->index(indice, 0));
        QTest::mouseClick(temas->viewport(), Qt::LeftButton, {},
                          temas->visualRect(temas->model()->index(indice, 0)).center());
    }

    void Clica_Linha(int linha, Qt::MouseButton botao = Qt::LeftButton)
    {
        QTest::mouseClick(m_lista->viewport(), botao, {},
                          m_lista->visualRect(m_lista->model()->index(linha, 0)).center());
    }

    QStringList Titulos() const
    {
        QStringList titulos;
        for (int i = 0; i < m_lista->ListCount(); ++i)
            titulos.append(m_lista->model()->index(i, 0).data().toString().section(u" ("_qs, 0, 0));
        return titulos;
    }

    QString Contagem() const { return Acha<QLabel>("lblResultado")->text(); }

    QString Ultimo_SQL() const { return m_pesquisas.isEmpty() ? QString() : m_pesquisas.last(); }

    QStringList Abertas() const
    {
        QStringList titulos;
        const QList<QWidget*> abertos = Visualizadores();
        for (const QWidget* visualizador : abertos)
            titulos.append(visualizador->findChild<QLabel*>(u"lblTitulo"_qs)->text());
        titulos.sort();
        return titulos;
    }

    ListaMusicas* m_lista = nullptr;
    qint64 m_tema = 0;
    QStringList m_pesquisas; ///< statements that look for songs, as they were handed in

private slots:
    void init()
    {
        Comeca();
        m_tema = m_catalogo->AddTheme(u"Louvor"_qs);
        m_catalogo->AddTheme(u"Outro"_qs);
    }

    void cleanup()
    {
        Termina();
        m_pesquisas.clear();
    }
};
