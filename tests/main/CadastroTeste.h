#pragma once

#include "FormularioTeste.h"

#include "controls/ClickableLabel.h"
#include "controls/ComboBox.h"
#include "controls/ListBox.h"
#include "controls/ListaMusicas.h"
#include "controls/RichTextBox.h"
#include "main/PainelCadastro.h"

#include <QPushButton>

/// What tests of the song entry panel share: that panel on top, on a catalogue with the themes
/// "Louvor" (1), "Natal" (2) and "Sem Tema" (3, sorted last), and the user's hands and eyes.
class CadastroTeste : public FormularioTeste
{
    Q_OBJECT

protected:
    /// Shows the panel for a new song.
    void Carrega()
    {
        QVERIFY(Mostra_Formulario());
        Anota_Comandos();
        m_form->mnuCadastro_Click();
        m_comandos.clear();
        m_form->chamadas.clear();
    }

    /// Shows the panel for a stored song.
    void Edita(qint64 id)
    {
        if (!m_form)
            Carrega();
        m_form->Inicializa_Cadastro(static_cast<double>(id));
        m_comandos.clear();
    }

    /// Adds a song with the theme "Louvor". @return MUSICA.ID
    qint64 Musica(const TestSong& musica = {}) const
    {
        const qint64 id = m_catalogo->AddSong(musica);
        m_catalogo->Link(id, 1);
        return id;
    }

    void Clica(const char* botao) { QTest::mouseClick(Acha<QWidget>(botao), Qt::LeftButton); }

    void Clica_Tema(int posicao, Qt::MouseButton botao = Qt::LeftButton)
    {
        ListBox& temas = *Temas();
        const QModelIndex item = temas.model()->index(posicao, 0);
        temas.scrollTo(item);
        QTest::mouseClick(temas.viewport(), botao, {}, temas.visualRect(item).center());
    }

    void Digita(const char* caixa, const QString& texto)
    {
        auto* alvo = Acha<QWidget>(caixa);
        alvo->setFocus();
        QTest::keyClick(alvo, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(alvo, Qt::Key_Delete);
        Escreve(alvo, texto);
    }

    static void Escreve(QWidget* alvo, const QString& texto)
    {
        for (const QChar letra : texto) {
            if (letra == u'\n')
                QTest::keyClick(alvo, Qt::Key_Return);
            else
                QTest::sendKeyEvent(QTest::Click, alvo, Qt::Key_unknown, QString(letra),
                                    Qt::NoModifier);
        }
    }

    /// Types a whole song with the theme "Louvor" into the panel.
    void Digita_Musica(const QString& titulo = u"Luz"_qs)
    {
        Digita("txtCadTitulo", titulo);
        Digita("txtCadReferencia", u"Ana"_qs);
        Digita("txtCadLetra_0", u"C\nLuz"_qs);
        Clica_Tema(0);
    }

    QString Texto(const char* caixa) const { return Acha<TextBox>(caixa)->text(); }
    QString Letra(int versao) const { return Caixa(versao)->Text(); }
    RichTextBox* Caixa(int versao) const
    {
        return Acha<RichTextBox>(versao == 0 ? "txtCadLetra_0" : "txtCadLetra_1");
    }
    ListBox* Temas() const { return Acha<ListBox>("lstCadTema"); }
    QString Identidade() const { return Acha<QWidget>("txtCadTitulo")->property("Tag").toString(); }

    QStringList Nomes_Temas() const
    {
        QStringList nomes;
        for (int i = 0; i < Temas()->ListCount(); ++i)
            nomes.append(Temas()->Text(i));
        return nomes;
    }

    QStringList Temas_Marcados() const
    {
        QStringList nomes;
        for (int i = 0; i < Temas()->ListCount(); ++i) {
            if (Temas()->Selected(i))
                nomes.append(Temas()->Text(i));
        }
        return nomes;
    }

    /// @return the songs in the search panel's list
    QStringList Titulos() const
    {
        const auto* lista = Acha<ListaMusicas>("lstMusicas");
        QStringList titulos;
        for (int i = 0; i < lista->ListCount(); ++i)
            titulos.append(lista->model()->index(i, 0).data().toString().section(u" ("_qs, 0, 0));
        return titulos;
    }

    /// @return how often the search panel searched
    qsizetype Pesquisas() const
    {
        return m_comandos.filter(u"SELECT DISTINCT MUSICA.ID"_qs).size();
    }

    /// @return the statements that change rows, in their order
    QStringList Alteracoes() const
    {
        QStringList alteracoes;
        for (const QString& sql : m_comandos) {
            if (!sql.startsWith(u"SELECT"))
                alteracoes.append(sql);
        }
        return alteracoes;
    }

    /// Compares the only box that was open since the last call, and forgets it.
    void Confere_Caixa(const QString& texto, Icone icone)
    {
        QCOMPARE(m_caixas->boxes.size(), 1);
        QCOMPARE(m_caixas->boxes.first().text, texto);
        QCOMPARE(m_caixas->boxes.first().icon, icone);
        QCOMPARE(m_caixas->boxes.first().title, u"Melodario"_qs);
        m_caixas->boxes.clear();
    }

private slots:
    void init()
    {
        Comeca();
        m_catalogo->AddTheme(u"Louvor"_qs);
        m_catalogo->AddTheme(u"Natal"_qs);
        m_catalogo->AddTheme(u"Sem Tema"_qs, 3);
    }

    void cleanup() { Termina(); }
};
