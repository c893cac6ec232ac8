#pragma once

#include "FormularioTeste.h"

#include "controls/ComboBox.h"
#include "controls/ListBox.h"
#include "controls/MaskEdit.h"
#include "controls/Resposta_Mensagem.h"
#include "main/GradeListas.h"
#include "main/PainelLista.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

/// What tests of the setlist panel share: that panel on top, on a catalogue with the themes
/// "Louvor" (1) and "Outro" (2), the user's hands and eyes, and today's date.
class ListaTeste : public FormularioTeste
{
    Q_OBJECT

protected:
    /// Adds a song of category 1 with the theme "Louvor". @return MUSICA.ID
    qint64 Musica(const QString& titulo, const TestSong& outros = {}) const
    {
        TestSong musica = outros;
        musica.title = titulo;
        const qint64 id = m_catalogo->AddSong(musica);
        m_catalogo->Link(id, m_tema);
        return id;
    }

    /// Shows the form and goes to the panel by its menu entry.
    void Carrega()
    {
        QVERIFY(Mostra_Formulario());
        Acha<PainelLista>("pctFrame_1")->Usa_Calendario([this] { return m_hoje; });
        Escolhe("mnuLista");
        Anota_Comandos();
        m_form->chamadas.clear();
    }

    void Escolhe(const char* menu) const { Acha<QAction>(menu)->trigger(); }

    void Clica(const char* controle) const
    {
        auto* alvo = Acha<QWidget>(controle);
        QTest::mouseClick(alvo, Qt::LeftButton, {}, QPoint(12, alvo->height() / 2));
    }

    void Digita(const char* caixa, const QString& texto) const
    {
        auto* alvo = Acha<QLineEdit>(caixa);
        alvo->setFocus();
        alvo->selectAll();
        QTest::keyClick(alvo, Qt::Key_Delete);
        QTest::keyClicks(alvo, texto);
    }

    void Tecla(const char* controle, Qt::Key tecla, Qt::KeyboardModifiers junto = {}) const
    {
        QTest::keyClick(Acha<QWidget>(controle), tecla, junto);
    }

    /// Presses Enter and holds it long enough for two repeats.
    void Segura_Enter(const char* controle) const
    {
        Tecla(controle, Qt::Key_Return);
        for (int i = 0; i < 2; ++i) {
            QKeyEvent repetida(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_qs, true);
            QApplication::sendEvent(Acha<QWidget>(controle), &repetida);
        }
    }

    static QPoint Lugar(QAbstractItemView* vista, int linha)
    {
        vista->scrollTo(vista->model()->index(linha, 0));
        return vista->visualRect(vista->model()->index(linha, 0)).center();
    }

    void Clica_Item(const char* lista, int linha) const
    {
        auto* vista = Acha<QAbstractItemView>(lista);
        QTest::mouseClick(vista->viewport(), Qt::LeftButton, {}, Lugar(vista, linha));
    }

    void Clica_Duas_Vezes(const char* lista, int linha) const
    {
        auto* vista = Acha<QAbstractItemView>(lista);
        const QPoint lugar = Lugar(vista, linha);
        QTest::mouseClick(vista->viewport(), Qt::LeftButton, {}, lugar);
        QTest::mouseDClick(vista->viewport(), Qt::LeftButton, {}, lugar);
    }

    /// Adds available songs by double clicks. @param linhas  positions from 0
    void Adiciona(const QList<int>& linhas) const
    {
        for (const int linha : linhas)
            Clica_Duas_Vezes("lstMusicasLista", linha);
    }

    /// Clicks a song of the setlist. @param linha  position from 0
    void Seleciona(int linha) const { Clica_Item("lstMusicasSelecionadas", linha); }
    /// @return the position of the setlist's current song from 0, -1 for none
    int Atual() const { return Acha<ListBox>("lstMusicasSelecionadas")->ListIndex(); }

    /// Double clicks a stored setlist and does something with the dialog that comes up.
    void Na_Lista(int linha, const std::function<void(QWidget&)>& faz)
    {
        m_dialogos = 0;
        QTimer::singleShot(0, this, [this, faz] {
            QWidget* dialogo = QApplication::activeModalWidget();
            if (!dialogo || dialogo->objectName() != u"frmMensagem2")
                qFatal("frmMensagem2 did not come up");
            ++m_dialogos;
            faz(*dialogo);
        });
        Clica_Duas_Vezes("lstLista", linha);
        QCOMPARE(m_dialogos, 1);
    }

    /// Double clicks a stored setlist and answers with a button.
    void Responde(int linha, const char* botao)
    {
        Na_Lista(linha, [botao](QWidget& dialogo) {
            QTest::mouseClick(dialogo.findChild<QPushButton*>(QLatin1String(botao)),
                              Qt::LeftButton);
        });
    }

    static QStringList Textos(const ListBox& lista)
    {
        QStringList textos;
        for (int i = 0; i < lista.ListCount(); ++i)
            textos.append(lista.Text(i));
        return textos;
    }

    static QList<qint64> Ids(const ListBox& lista)
    {
        QList<qint64> ids;
        for (int i = 0; i < lista.ListCount(); ++i)
            ids.append(lista.ItemData(i));
        return ids;
    }

    QStringList Oferecidas() const { return Textos(*Acha<ListBox>("lstMusicasLista")); }
    QStringList Selecionadas() const { return Textos(*Acha<ListBox>("lstMusicasSelecionadas")); }

    /// @return the titles of the setlist on screen, without their references
    QStringList Titulos() const
    {
        QStringList titulos;
        const QStringList textos = Selecionadas();
        for (const QString& texto : textos)
            titulos.append(texto.section(u" - "_qs, 0, 0));
        return titulos;
    }

    /// @return the texts of the grid's rows, name and date joined by a bar
    QStringList Grade() const
    {
        const QAbstractItemModel* modelo = Acha<GradeListas>("lstLista")->model();
        QStringList linhas;
        for (int i = 0; i < modelo->rowCount(); ++i)
            linhas.append(modelo->index(i, 0).data().toString() + u'|' +
                          modelo->index(i, 1).data().toString());
        return linhas;
    }

    QString Texto(const char* controle) const
    {
        return Acha<QWidget>(controle)->property("text").toString();
    }
    QString Tag(const char* controle) const
    {
        return Acha<QWidget>(controle)->property("Tag").toString();
    }
    QString Identidade() const { return Tag("txtNome"); }
    QString Modificada() const { return Tag("lstMusicasSelecionadas"); }

    /// @return the boxes that were shown, and forgets them
    QStringList Caixas()
    {
        QStringList textos;
        for (const RecordingDialogs::Box& caixa : std::as_const(m_caixas->boxes))
            textos.append(caixa.text);
        m_caixas->boxes.clear();
        return textos;
    }

    QList<QStringList> Listas() const
    {
        return m_catalogo->Rows(u"SELECT ID, NOME, DATA FROM LISTA ORDER BY ID"_qs);
    }
    QList<QStringList> Lugares() const
    {
        return m_catalogo->Rows(
            u"SELECT ID_LISTA, ID_MUSICA, ORDEM FROM LISTA_MUSICA ORDER BY ID_LISTA, ORDEM"_qs);
    }

    qint64 m_tema = 0;
    qint64 m_outro = 0;
    QDate m_hoje;
    int m_dialogos = 0; ///< how many dialogs the last double click showed

private slots:
    void init()
    {
        Comeca();
        m_tema = m_catalogo->AddTheme(u"Louvor"_qs);
        m_outro = m_catalogo->AddTheme(u"Outro"_qs);
        m_hoje = QDate(2009, 3, 5);
        Funcoes::Resposta_Mensagem = 0;
    }

    void cleanup() { Termina(); }
};
