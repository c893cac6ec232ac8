#pragma once

#include "PesquisaTeste.h"

#include "controls/RecordingFileDialogs.h"

#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolBar>

#include <functional>

/// What tests of the export share: songs to mark in the main form, hands in the export form while
/// it is open, the pickers' answers and a folder to write into.
class ExportarTeste : public PesquisaTeste
{
    Q_OBJECT

protected:
    /// Loads the main form and writes every statement down from then on.
    void Carrega_Exportar()
    {
        m_escolhas.reset(); // the one before puts the real pickers back
        m_escolhas = std::make_unique<RecordingFileDialogs>();
        m_destino = std::make_unique<QTemporaryDir>();
        QVERIFY(m_destino->isValid());
        m_comandos.clear();
        Carrega();
        Funcoes::Conexao.SetStatementHook([this](const QString& sql) { m_comandos.append(sql); });
    }

    /// Selects rows of the result list with the mouse, one after the other.
    void Marca(const QList<int>& linhas)
    {
        m_lista->clearSelection();
        for (const int linha : linhas)
            QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, Qt::ControlModifier,
                              m_lista->visualRect(m_lista->model()->index(linha, 0)).center());
    }

    void Clica_Toolbar()
    {
        auto* barra = Acha<QToolBar>("Toolbar");
        for (QAction* botao : barra->actions()) {
            if (botao->data().toString() == u"exportar")
                QTest::mouseClick(barra->widgetForAction(botao), Qt::LeftButton);
        }
    }

    void Clica_Menu()
    {
        QMenuBar* menu = m_form->menuBar();
        QTest::mouseClick(menu, Qt::LeftButton, {},
                          menu->actionGeometry(Acha<QAction>("mnuExportar")).center());
    }

    /// Opens the export form by the toolbar and does something in it; whatever is left open is
    /// closed. @return whether the form came up
    bool No_Formulario(const std::function<void(QDialog&)>& age)
    {
        return Ao_Abrir([this] { Clica_Toolbar(); }, age);
    }

    bool Ao_Abrir(const std::function<void()>& abre, const std::function<void(QDialog&)>& age)
    {
        bool veio = false;
        // In turn with the events that run while the form is being filled.
        const std::function<void()> espera = [&] {
            const QPointer<QDialog> form =
                qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!form) {
                if (!m_desistiu)
                    QTimer::singleShot(0, this, espera);
                return;
            }
            veio = form->objectName() == u"frmExportar";
            age(*form);
            if (form)
                form->close();
        };
        m_desistiu = false;
        QTimer::singleShot(0, this, espera);
        abre();
        m_desistiu = true;
        QCoreApplication::processEvents(); // the last turn, if no form came
        return veio;
    }

    /// Exports what is marked. @param um_arquivo  or one per song; into m_escolhas' answer
    void Exporta(bool um_arquivo)
    {
        QVERIFY(No_Formulario([um_arquivo](QDialog& form) {
            if (!um_arquivo)
                QTest::keyClick(form.findChild<QCheckBox*>(u"chkArquivo"_qs), Qt::Key_Space);
            Aperta(form, "cmdExportar");
        }));
    }

    static void Aperta(QDialog& form, const char* botao)
    {
        QTest::mouseClick(form.findChild<QPushButton*>(QString::fromLatin1(botao)), Qt::LeftButton);
    }

    template <typename Controle>
    static Controle* No(const QDialog& form, const char* nome)
    {
        auto* controle = form.findChild<Controle*>(QString::fromLatin1(nome));
        if (!controle)
            qFatal("no control called %s", nome);
        return controle;
    }

    /// @return the full path of a file in the destination
    QString Caminho(const QString& nome) const
    {
        return QDir::toNativeSeparators(m_destino->filePath(nome));
    }

    QByteArray Conteudo(const QString& nome) const
    {
        QFile arquivo(m_destino->filePath(nome));
        return arquivo.open(QIODevice::ReadOnly) ? arquivo.readAll()
                                                 : QByteArray("<" + nome.toUtf8() + " is missing>");
    }

    QStringList Arquivos() const
    {
        return QDir(m_destino->path())
            .entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    /// @return the lines of one song in a document
    static QByteArray Linhas(const QByteArray& titulo, const QByteArray& temas = "Louvor")
    {
        return "   <musica>\r\n       <titulo>" + titulo +
               "</titulo>\r\n       <referencia>An\xF4nimo</referencia>\r\n"
               "       <letra1>C  G7[br]Santo Deus</letra1>\r\n"
               "       <letra2>D  A7[br]Santo Deus</letra2>\r\n       <tom>C</tom>\r\n"
               "       <variacao></variacao>\r\n       <categoria>1</categoria>\r\n"
               "       <temas>\r\n           <descricao>" +
               temas + "</descricao>\r\n       </temas>\r\n   </musica>\r\n";
    }

    static QByteArray Documento(const QByteArray& musicas)
    {
        return "<?xml version=\"1.0\" encoding=\"iso-8859-1\" ?>\r\n<musicas>\r\n" + musicas +
               "</musicas>";
    }

    std::unique_ptr<RecordingFileDialogs> m_escolhas;
    std::unique_ptr<QTemporaryDir> m_destino;
    QStringList m_comandos; ///< every statement since Carrega_Exportar

private:
    bool m_desistiu = false;
};
