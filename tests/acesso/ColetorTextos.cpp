#include "acesso/ColetorTextos.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>
#include <QToolButton>

namespace {

QString Icone_Da(const QMessageBox& caixa)
{
    switch (caixa.icon()) {
    case QMessageBox::Critical:
        return u"crítica"_qs;
    case QMessageBox::Question:
        return u"pergunta"_qs;
    case QMessageBox::Warning:
        return u"exclamação"_qs;
    case QMessageBox::Information:
        return u"informação"_qs;
    case QMessageBox::NoIcon:
        break;
    }
    return u"sem ícone"_qs;
}

} // namespace

void ColetorTextos::Save(const QString& name)
{
    QTest::qWait(Telas::PaintMs);
    m_tela = name;
    const auto janelas = QApplication::topLevelWidgets();
    for (QWidget* janela : janelas) {
        if (janela->isVisible() && janela->windowType() != Qt::ToolTip)
            Janela(*janela);
    }
}

void ColetorTextos::Anota(const QString& onde, const QString& texto)
{
    const QPair<QString, QString> visto(m_formulario + onde, texto);
    if (!texto.isEmpty() && !vistos.contains(visto))
        vistos.insert(visto, m_tela);
}

void ColetorTextos::Janela(QWidget& janela)
{
    m_formulario.clear();
    if (qobject_cast<QMessageBox*>(&janela) || qobject_cast<QInputDialog*>(&janela) ||
        qobject_cast<QFileDialog*>(&janela)) {
        Caixa(janela);
        return;
    }
    Anota(janela.objectName() + u".título"_qs, janela.windowTitle());
    if (janela.objectName() != u"frmPrincipal")
        m_formulario = janela.objectName() + u'/';
    const auto controles = janela.findChildren<QWidget*>();
    for (const QWidget* controle : controles) {
        if (controle->window() == &janela && controle->isVisible())
            Controle(*controle);
    }
}

/// What the toolkit builds: its buttons speak the language of the toolkit's own catalogue.
void ColetorTextos::Caixa(QWidget& janela)
{
    if (const auto* mensagem = qobject_cast<QMessageBox*>(&janela)) {
        Anota(u"mensagem "_qs + Icone_Da(*mensagem), mensagem->text());
        Anota(u"mensagem.título"_qs, mensagem->windowTitle());
        const auto botoes = mensagem->buttons();
        for (const QAbstractButton* botao : botoes)
            Anota(u"mensagem.botão"_qs, botao->text());
    } else if (const auto* entrada = qobject_cast<QInputDialog*>(&janela)) {
        Anota(u"entrada.pedido"_qs, entrada->labelText());
        Anota(u"entrada.título"_qs, entrada->windowTitle());
        const auto botoes = entrada->findChildren<QAbstractButton*>();
        for (const QAbstractButton* botao : botoes)
            Anota(u"entrada.botão"_qs, botao->text());
    } else if (const auto* seletor = qobject_cast<QFileDialog*>(&janela)) {
        Anota(u"seletor.título"_qs, seletor->windowTitle());
        if (seletor->fileMode() != QFileDialog::Directory)
            Anota(u"seletor.filtro"_qs, seletor->nameFilters().join(u'|'));
    }
}

void ColetorTextos::Controle(const QWidget& controle)
{
    const QString nome = controle.objectName();
    if (nome.startsWith(u"qt_") || qobject_cast<const QToolButton*>(&controle))
        return; // a piece of a control; the toolbar's buttons are its actions
    Anota(nome + u".dica"_qs, controle.toolTip());
    Anota(nome + u".nome"_qs, controle.accessibleName());
    Anota(nome + u".descrição"_qs, controle.accessibleDescription());
    Anota(nome + u".ajuda"_qs, controle.whatsThis());
    Anota(nome + u".estado"_qs, controle.statusTip());
    if (const auto* rotulo = qobject_cast<const QLabel*>(&controle)) {
        const QWidget* dono = rotulo->parentWidget();
        Anota((nome.isEmpty() ? dono->objectName() : nome) + u".texto"_qs, rotulo->text());
    } else if (const auto* botao = qobject_cast<const QAbstractButton*>(&controle)) {
        Anota(nome + u".texto"_qs, botao->text());
    } else if (const auto* caixa = qobject_cast<const QLineEdit*>(&controle)) {
        Anota(nome + u".chamada"_qs, caixa->placeholderText());
        Anota(nome + u".valor"_qs, caixa->text());
    } else {
        Itens(controle);
        Acoes(controle);
    }
}

void ColetorTextos::Itens(const QWidget& controle)
{
    constexpr int Mais = 50; // what comes after them is more of the same
    const QString nome = controle.objectName();
    if (const auto* combo = qobject_cast<const QComboBox*>(&controle)) {
        for (int i = 0; i < qMin(combo->count(), Mais); ++i)
            Anota(nome + u".item"_qs, combo->itemText(i));
        return;
    }
    const auto* vista = qobject_cast<const QAbstractItemView*>(&controle);
    if (!vista || !vista->model() || qobject_cast<const QHeaderView*>(vista) ||
        qobject_cast<const QComboBox*>(vista->parentWidget()) ||
        vista->window()->windowType() == Qt::Popup)
        return;
    const auto* modelo = vista->model();
    const bool comCabecalho = vista->findChild<QHeaderView*>() != nullptr;
    for (int coluna = 0; comCabecalho && coluna < modelo->columnCount(); ++coluna)
        Anota(nome + u".coluna"_qs, modelo->headerData(coluna, Qt::Horizontal).toString());
    for (int linha = 0; linha < qMin(modelo->rowCount(), Mais); ++linha)
        Anota(nome + u".item"_qs, modelo->index(linha, 0).data().toString());
}

void ColetorTextos::Acoes(const QWidget& barra)
{
    if (const auto* menu = qobject_cast<const QMenuBar*>(&barra)) {
        const auto acoes = menu->actions();
        for (const QAction* acao : acoes)
            Anota(acao->objectName() + u".texto"_qs, acao->text());
    } else if (const auto* botoes = qobject_cast<const QToolBar*>(&barra)) {
        const auto acoes = botoes->actions();
        for (const QAction* acao : acoes) {
            const QString nome = barra.objectName() + u' ' + acao->data().toString();
            Anota(nome + u".texto"_qs, acao->text());
            Anota(nome + u".dica"_qs, acao->toolTip());
        }
    }
}
