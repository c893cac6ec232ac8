#pragma once

#include "controls/TextBox.h"
#include "main/frmPrincipal.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"

#include <QTest>

#include <functional>
#include <stdexcept>

/// The main form on a catalogue of a test's own. It writes down what is asked of the other panels
/// and of the on-screen keyboard, and can refuse to leave the setlist.
class PrincipalTeste final : public frmPrincipal
{
public:
    explicit PrincipalTeste(const TestCatalogue& catalogo)
        : m_catalogo(catalogo)
    {
    }
    ~PrincipalTeste() override { close(); }

    template <typename Controle>
    Controle* Acha(const char* nome) const
    {
        auto* controle = findChild<Controle*>(QString::fromLatin1(nome));
        if (!controle)
            qFatal("no control called %s", nome);
        return controle;
    }

    void Inicializa_Cadastro(double id) override
    {
        chamadas.append(u"Inicializa_Cadastro %1"_qs.arg(id));
        frmPrincipal::Inicializa_Cadastro(id);
    }
    void cmdExcluir_Click() override
    {
        chamadas.append(u"cmdExcluir_Click"_qs);
        frmPrincipal::cmdExcluir_Click();
    }
    void mnuExportar_Click() override
    {
        chamadas.append(u"mnuExportar_Click"_qs);
        frmPrincipal::mnuExportar_Click();
    }
    void mnuImportar_Click() override
    {
        chamadas.append(u"mnuImportar_Click"_qs);
        frmPrincipal::mnuImportar_Click();
    }
    void Mostra_Teclado(TextBox& caixa) override
    {
        chamadas.append(u"Mostra_Teclado "_qs + caixa.objectName());
        frmPrincipal::Mostra_Teclado(caixa);
    }
    void Oculta_Teclado() override
    {
        chamadas.append(u"Oculta_Teclado"_qs);
        if (falhaAoOcultar)
            throw std::runtime_error("the keyboard stays");
        frmPrincipal::Oculta_Teclado();
    }

    QStringList chamadas;
    bool falhaAoOcultar = false;            ///< Oculta_Teclado throws
    bool aceita = true;                     ///< what Verifica_Modificacoes answers
    std::function<void()> enquantoPergunta; ///< what happens while the setlist's question is open

protected:
    bool Verifica_Modificacoes() override
    {
        chamadas.append(u"Verifica_Modificacoes"_qs);
        if (enquantoPergunta)
            enquantoPergunta();
        return frmPrincipal::Verifica_Modificacoes() && aceita;
    }
    bool Inicializa_Lista() override
    {
        chamadas.append(u"Inicializa_Lista"_qs);
        return frmPrincipal::Inicializa_Lista();
    }
    void Importa_Musicas(const QString& caminho) override
    {
        chamadas.append(u"Importa_Musicas %1"_qs.arg(caminho));
        frmPrincipal::Importa_Musicas(caminho);
    }
    void Conecta_Banco() override
    {
        chamadas.append(u"Conecta_Banco"_qs);
        Funcoes::Conexao.Open(m_catalogo.ConnectionString());
        Funcoes::Conexao.CursorLocation = Connection::UseClient;
    }

private:
    const TestCatalogue& m_catalogo;
};
