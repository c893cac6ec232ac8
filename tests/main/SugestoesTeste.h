#pragma once

#include "PesquisaTeste.h"

#include "controls/Appearance.h"
#include "controls/RichTextBox.h"

#include <QAction>

/// What tests of the suggestions share: the song entry panel with its boxes and lists, and typing
/// into them.
class SugestoesTeste : public PesquisaTeste
{
    Q_OBJECT

protected:
    void Cadastro()
    {
        Carrega();
        Acha<QAction>("mnuCadastro")->trigger();
        Anota_Comandos();
        m_titulo = Acha<TextBox>("txtCadTitulo");
        m_referencia = Acha<TextBox>("txtCadReferencia");
        m_musicas = Acha<ListBox>("lstMusicasSemelhantes");
        m_referencias = Acha<ListBox>("lstReferenciasSemelhantes");
        m_comandos.clear();
    }
    void Tecla(int tecla) const
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(tecla));
    }
    /// Types any characters: QTest::keyClicks takes ASCII only.
    static void Escreve(TextBox& caixa, const QString& texto)
    {
        caixa.setFocus();
        for (const QChar letra : texto)
            QTest::sendKeyEvent(QTest::Click, &caixa, Qt::Key_unknown, QString(letra), {});
    }
    void Escreve_Titulo(const QString& texto) const { Escreve(*m_titulo, texto); }
    void Escreve_Referencia(const QString& texto) const { Escreve(*m_referencia, texto); }
    void Com_Referencia(const QString& titulo, const QString& referencia) const
    {
        TestSong musica;
        musica.reference = referencia;
        Musica(titulo, {}, musica);
    }
    static QStringList Itens(const ListBox& lista)
    {
        QStringList itens;
        for (int i = 0; i < lista.ListCount(); ++i)
            itens.append(lista.Text(i));
        return itens;
    }
    static void Clica_Duas_Vezes(const ListBox& lista, int item)
    {
        const QPoint lugar = lista.visualRect(lista.model()->index(item, 0)).center();
        QTest::mouseDClick(lista.viewport(), Qt::LeftButton, {}, lugar);
    }
    QRect No_Formulario(const QWidget& controle) const
    {
        return {controle.mapTo(m_form.get(), QPoint(0, 0)), controle.size()};
    }

    TextBox* m_titulo = nullptr;
    TextBox* m_referencia = nullptr;
    ListBox* m_musicas = nullptr;
    ListBox* m_referencias = nullptr;

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
};
