#pragma once

#include "PrincipalTeste.h"

#include "controls/RecordingDialogs.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QTimer>

#include <memory>

/// What tests of all panels share: the shown main form on a catalogue of each test's own, its
/// boxes, its viewers, and the statements as they were handed to the store.
class FormularioTeste : public QObject
{
protected:
    /// Begins a test with an empty catalogue.
    void Comeca()
    {
        m_catalogo = std::make_unique<TestCatalogue>();
        m_caixas = std::make_unique<RecordingDialogs>();
    }

    /// Ends a test: nothing of it is left to the next one.
    void Termina()
    {
        Funcoes::Conexao.SetStatementHook({});
        const QList<QWidget*> abertos = Visualizadores();
        for (QWidget* visualizador : abertos)
            delete visualizador;
        m_form.reset();
        m_caixas.reset();
        m_catalogo.reset();
        m_comandos.clear();
    }

    /// Shows the form. The first search waits for whoever wants it: its delay has a test of its
    /// own.
    [[nodiscard]] bool Mostra_Formulario()
    {
        m_form = std::make_unique<PrincipalTeste>(*m_catalogo);
        m_form->Form_Load(QString());
        m_form->show();
        Acha<QTimer>("Timer1")->stop();
        return QTest::qWaitForWindowActive(m_form.get());
    }

    /// Writes down statements from now on.
    void Anota_Comandos()
    {
        Funcoes::Conexao.SetStatementHook([this](const QString& sql) { m_comandos.append(sql); });
    }

    /// @return whether something is drawn in the middle of a list, where no row of a short one lies
    static bool Desenho_No_Meio(QAbstractScrollArea& lista)
    {
        constexpr int Lado = 96;
        QRect meio(0, 0, Lado, Lado);
        meio.moveCenter(lista.viewport()->rect().center());
        const QImage visto = lista.viewport()->grab(meio).toImage();
        const QRgb fundo = visto.pixel(0, 0);
        for (int y = 0; y < visto.height(); ++y) {
            for (int x = 0; x < visto.width(); ++x) {
                if (visto.pixel(x, y) != fundo)
                    return true;
            }
        }
        return false;
    }

    static QList<QWidget*> Visualizadores()
    {
        QList<QWidget*> achados;
        const QWidgetList janelas = QApplication::topLevelWidgets();
        for (QWidget* janela : janelas) {
            if (janela->objectName() == u"frmVisualizar")
                achados.append(janela);
        }
        return achados;
    }

    template <typename Controle>
    Controle* Acha(const char* nome) const
    {
        return m_form->Acha<Controle>(nome);
    }

    std::unique_ptr<TestCatalogue> m_catalogo;
    std::unique_ptr<RecordingDialogs> m_caixas;
    std::unique_ptr<PrincipalTeste> m_form;
    QStringList m_comandos; ///< statements as they were handed in
};
