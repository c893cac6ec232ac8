#pragma once

#include "controls/ListaMusicas.h"
#include "harness/Painted.h"
#include "main/frmPrincipal.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"

#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>

/// The main form on a catalogue of ours, shown and with its first list.
class MainForm final : public frmPrincipal
{
public:
    explicit MainForm(const TestCatalogue& catalogue)
        : m_catalogue(catalogue)
    {
        Form_Load(QString());
        show();
        if (!QTest::qWaitForWindowExposed(this))
            qFatal("the main form is not shown");
        Tick();
        PaintCounter::Settle();
    }
    ~MainForm() override { close(); }

    template <typename Control>
    Control& Find(const char* name) const
    {
        auto* control = findChild<Control*>(QString::fromLatin1(name));
        if (!control)
            qFatal("no control called %s", name);
        return *control;
    }

    ListaMusicas& List() const { return Find<ListaMusicas>("lstMusicas"); }

    /// Empties the boxes, writes a text into one and stops where the search's clock would tick.
    void Write(const char* box, const QString& text) const
    {
        for (const char* name : {"txtTitulo", "txtReferencia", "txtLetra"})
            Find<QLineEdit>(name).clear();
        Find<QLineEdit>(box).setText(text);
    }

    /// The tick of the search's clock.
    void Tick() const
    {
        auto& clock = Find<QTimer>("Timer1");
        clock.start();
        QTimerEvent tick(clock.timerId());
        QCoreApplication::sendEvent(&clock, &tick);
    }

protected:
    void Conecta_Banco() override
    {
        Funcoes::Conexao.Open(m_catalogue.ConnectionString());
        Funcoes::Conexao.CursorLocation = Connection::UseClient;
    }

private:
    const TestCatalogue& m_catalogue;
};
