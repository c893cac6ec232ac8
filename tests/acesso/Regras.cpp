#include "acesso/Regras.h"

#include "acesso/Contraste.h"
#include "controls/ClickableLabel.h"
#include "controls/ImageButton.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>
#include <functional>

namespace {

constexpr int Borda = 3;        // pixels at the edge of a control where frames are drawn
constexpr int MarcaDeFoco = 80; // pixels that a visible focus changes at least; a caret has some 20
constexpr int MaisLinhas = 12;  // rows of a list that are looked at

QString Nome(const QObject* objeto)
{
    if (!objeto)
        return u"(no object)"_qs;
    const QString nome = objeto->objectName();
    return QString::fromLatin1(objeto->metaObject()->className()) + u' ' +
           (nome.isEmpty() ? u"(no name)"_qs : nome);
}

/// The toolkit's own file picker and the list that a combo box rolls down: their look is ours,
/// their build is not.
bool EDoSistema(const QWidget& janela)
{
    return janela.inherits("QFileDialog") || janela.inherits("QComboBoxPrivateContainer");
}

void PercorreAcessiveis(QAccessibleInterface* raiz,
                        const std::function<void(QAccessibleInterface&)>& ve)
{
    if (!raiz || !raiz->isValid() || raiz->state().invisible)
        return;
    ve(*raiz);
    const int filhos = std::min(raiz->childCount(), 200);
    for (int i = 0; i < filhos; ++i)
        PercorreAcessiveis(raiz->child(i), ve);
}

QList<QWidget*> Visiveis(const QWidget& janela)
{
    QList<QWidget*> visiveis;
    const auto todos = janela.findChildren<QWidget*>();
    for (QWidget* um : todos) {
        if (um->isVisibleTo(&janela) && um->window() == &janela && !um->visibleRegion().isEmpty())
            visiveis.append(um);
    }
    return visiveis;
}

bool EMoldura(QAccessible::Role papel)
{
    switch (papel) {
    case QAccessible::Client:
    case QAccessible::ScrollBar:
    case QAccessible::Grouping:
    case QAccessible::Separator:
    case QAccessible::Border:
    case QAccessible::Whitespace:
    case QAccessible::Graphic: // a picture that says nothing: the rule of roles tells those apart
    case QAccessible::Cell:    // what the catalogue holds, which may be nothing
    case QAccessible::ListItem:
    case QAccessible::TreeItem:
    case QAccessible::Row:
        return true;
    default:
        return false;
    }
}

/// @return the roles that a control may have; empty for what is no control
QList<QAccessible::Role> PapeisDe(const QWidget& controle)
{
    if (const auto* imagem = qobject_cast<const ImageButton*>(&controle); imagem && imagem->inert())
        return {QAccessible::Graphic};
    if (qobject_cast<const QCheckBox*>(&controle))
        return {QAccessible::CheckBox};
    if (qobject_cast<const QRadioButton*>(&controle))
        return {QAccessible::RadioButton};
    if (qobject_cast<const QAbstractButton*>(&controle))
        return {QAccessible::Button, QAccessible::ButtonMenu};
    if (qobject_cast<const ClickableLabel*>(&controle))
        return {QAccessible::Button, QAccessible::PageTab};
    if (const auto* rotulo = qobject_cast<const QLabel*>(&controle))
        return {rotulo->pixmap(Qt::ReturnByValue).isNull() ? QAccessible::StaticText
                                                           : QAccessible::Graphic};
    if (qobject_cast<const QLineEdit*>(&controle) || qobject_cast<const QTextEdit*>(&controle))
        return {QAccessible::EditableText};
    if (qobject_cast<const QComboBox*>(&controle))
        return {QAccessible::ComboBox};
    if (qobject_cast<const QListView*>(&controle))
        return {QAccessible::List};
    if (qobject_cast<const QTreeView*>(&controle))
        return {QAccessible::Tree, QAccessible::Table};
    if (qobject_cast<const QProgressBar*>(&controle))
        return {QAccessible::ProgressBar};
    if (qobject_cast<const QMenuBar*>(&controle))
        return {QAccessible::MenuBar};
    return {};
}

bool SePressiona(const QWidget& controle)
{
    if (const auto* imagem = qobject_cast<const ImageButton*>(&controle))
        return !imagem->inert();
    return qobject_cast<const QAbstractButton*>(&controle) ||
           qobject_cast<const ClickableLabel*>(&controle);
}

QString DefeitoDePapel(const QWidget& controle, QAccessibleInterface& acessivel)
{
    const QList<QAccessible::Role> certos = PapeisDe(controle);
    const auto papel = acessivel.role();
    if (!certos.isEmpty() && !certos.contains(papel))
        return u"has the wrong role %1"_qs.arg(papel);
    if (controle.isWindow() && EMoldura(papel))
        return u"is no window to a screen reader"_qs;
    if (certos.isEmpty() && controle.focusPolicy() != Qt::NoFocus && !controle.isWindow() &&
        EMoldura(papel))
        return u"takes the focus and is no control to a screen reader"_qs;
    if (SePressiona(controle) && controle.isEnabled() &&
        (!acessivel.actionInterface() || acessivel.actionInterface()->actionNames().isEmpty()))
        return u"cannot be pressed by a screen reader"_qs;
    return {};
}

/// The texts that are drawn in a control, each with its place in the control.
QList<QPair<QString, QRect>> TextosDe(const QWidget& controle)
{
    const QRect dentro = controle.rect().adjusted(Borda, Borda, -Borda, -Borda);
    if (const auto* botao = qobject_cast<const QAbstractButton*>(&controle)) {
        if (botao->text().isEmpty() || qobject_cast<const ImageButton*>(botao))
            return {};
        QStyleOptionButton opcao;
        opcao.initFrom(botao);
        opcao.text = botao->text();
        if (qobject_cast<const QCheckBox*>(botao))
            return {{botao->text(), botao->style()
                                        ->subElementRect(QStyle::SE_CheckBoxContents, &opcao, botao)
                                        .intersected(dentro)}};
        if (qobject_cast<const QRadioButton*>(botao))
            return {
                {botao->text(), botao->style()
                                    ->subElementRect(QStyle::SE_RadioButtonContents, &opcao, botao)
                                    .intersected(dentro)}};
        if (qobject_cast<const QToolButton*>(botao))
            return {{botao->text(), dentro.adjusted(0, dentro.height() * 2 / 3, 0, 0)}};
        return {{botao->text(), dentro}};
    }
    if (const auto* rotulo = qobject_cast<const QLabel*>(&controle)) {
        if (rotulo->text().trimmed().isEmpty())
            return {};
        return {{rotulo->text(), rotulo->contentsRect().adjusted(1, 1, -1, -1)}};
    }
    if (const auto* caixa = qobject_cast<const QLineEdit*>(&controle)) {
        if (caixa->displayText().isEmpty() && caixa->placeholderText().isEmpty())
            return {};
        return {{caixa->displayText(), dentro}};
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(&controle)) {
        if (combo->currentText().trimmed().isEmpty())
            return {};
        return {{combo->currentText(), dentro.adjusted(0, 0, -28, 0)}};
    }
    if (const auto* barra = qobject_cast<const QProgressBar*>(&controle)) {
        if (!barra->isTextVisible() || barra->text().isEmpty())
            return {};
        return {{barra->text(), barra->rect()}};
    }
    QList<QPair<QString, QRect>> textos;
    if (const auto* menu = qobject_cast<const QMenuBar*>(&controle)) {
        const auto acoes = menu->actions();
        for (QAction* acao : acoes)
            textos.append({acao->text(), menu->actionGeometry(acao)});
    } else if (const auto* cabecalho = qobject_cast<const QHeaderView*>(&controle)) {
        for (int i = 0; i < cabecalho->count(); ++i)
            textos.append({cabecalho->model()->headerData(i, Qt::Horizontal).toString(),
                           QRect(cabecalho->sectionViewportPosition(i), 0,
                                 cabecalho->sectionSize(i), cabecalho->height())
                               .adjusted(Borda, Borda, -Borda, -Borda)});
    } else if (const auto* vista = qobject_cast<const QAbstractItemView*>(&controle)) {
        const int colunas =
            qobject_cast<const QTreeView*>(vista) ? vista->model()->columnCount() : 1;
        for (int linha = 0; linha < std::min(vista->model()->rowCount(), MaisLinhas); ++linha) {
            for (int coluna = 0; coluna < colunas; ++coluna) {
                const QModelIndex indice = vista->model()->index(linha, coluna);
                QRect lugar = vista->visualRect(indice);
                if (indice.flags().testFlag(Qt::ItemIsUserCheckable))
                    lugar.setLeft(lugar.left() + 24);
                lugar = lugar.intersected(vista->viewport()->rect());
                lugar.translate(vista->viewport()->pos());
                if (!indice.data().toString().trimmed().isEmpty() && lugar.height() > 8)
                    textos.append(
                        {indice.data().toString(), lugar.adjusted(Borda, Borda, -Borda, -Borda)});
            }
        }
    }
    return textos;
}

/// The keys of the on-screen keyboard: dark on light grey, the last one touched white on grey, as
/// they have always been.
bool TemCorDada(const QWidget& controle)
{
    return controle.objectName().startsWith(u"lblTecla_");
}

/// @param lugar  in the window's pixels
/// @return whether something floats over it
bool EstaCoberto(const QWidget& janela, const QWidget& controle, const QRect& lugar)
{
    for (const QPoint& ponto : {lugar.center(), lugar.topLeft(), lugar.bottomRight()}) {
        const QWidget* emcima = janela.childAt(ponto);
        if (emcima != &controle && !(emcima && controle.isAncestorOf(emcima)))
            return true;
    }
    return false;
}

bool TabAlcanca(const QWidget& controle)
{
    return (controle.focusPolicy() & Qt::TabFocus) != 0 && controle.isEnabled();
}

QImage Imagem(QWidget& janela, const QRect& lugar)
{
    return janela.grab(lugar).toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

QStringList Regras::Nomes(QWidget& janela)
{
    QStringList defeitos;
    PercorreAcessiveis(QAccessible::queryAccessibleInterface(&janela), [&](auto& acessivel) {
        const auto papel = acessivel.role();
        if (EMoldura(papel) || !acessivel.text(QAccessible::Name).trimmed().isEmpty())
            return;
        const auto* rotulo = qobject_cast<const QLabel*>(acessivel.object());
        if (rotulo && rotulo->text().isEmpty()) // a line that is empty for now
            return;
        // What a view or a combo box is built of is announced as part of it.
        const auto* controle = qobject_cast<const QWidget*>(acessivel.object());
        if (controle && (qobject_cast<const QHeaderView*>(controle) ||
                         qobject_cast<const QComboBox*>(controle->parentWidget()) ||
                         controle->objectName().startsWith(u"qt_")))
            return;
        if (!EDoSistema(janela))
            defeitos.append(Nome(acessivel.object()) +
                            u" has no accessible name (role %1)"_qs.arg(papel));
    });
    return defeitos;
}

QStringList Regras::Papeis(QWidget& janela)
{
    QStringList defeitos;
    PercorreAcessiveis(QAccessible::queryAccessibleInterface(&janela), [&](auto& acessivel) {
        const auto* controle = qobject_cast<const QWidget*>(acessivel.object());
        if (!controle)
            return;
        const QString defeito = DefeitoDePapel(*controle, acessivel);
        if (!defeito.isEmpty() && !EDoSistema(janela))
            defeitos.append(Nome(controle) + u' ' + defeito);
    });
    return defeitos;
}

QStringList Regras::Rotulos(QWidget& janela)
{
    QStringList defeitos;
    const auto visiveis = Visiveis(janela);
    for (QWidget* controle : visiveis) {
        // A combo box is called what is chosen in it: what it is for has to be said besides.
        if (qobject_cast<QComboBox*>(controle) && !EDoSistema(janela)) {
            auto* acessivel = QAccessible::queryAccessibleInterface(controle);
            if (acessivel->relations(QAccessible::Label).isEmpty() &&
                acessivel->text(QAccessible::Description).isEmpty())
                defeitos.append(Nome(controle) + u" is a field without a label"_qs);
        }
        auto* rotulo = qobject_cast<QLabel*>(controle);
        if (!rotulo || !rotulo->text().endsWith(u':') || EDoSistema(janela))
            continue;
        QWidget* campo = rotulo->buddy();
        if (!campo || !campo->isVisibleTo(&janela)) {
            defeitos.append(Nome(rotulo) + u" is a label without a field"_qs);
            continue;
        }
        const auto relacoes = QAccessible::queryAccessibleInterface(rotulo)->relations();
        if (std::none_of(relacoes.begin(), relacoes.end(), [campo](const auto& relacao) {
                return relacao.second == QAccessible::Labelled && relacao.first->object() == campo;
            }))
            defeitos.append(Nome(rotulo) + u" does not say which field it belongs to"_qs);
    }
    return defeitos;
}

QStringList Regras::Ordem(QWidget& janela)
{
    QStringList defeitos;
    if (EDoSistema(janela))
        return defeitos;
    const QWidget* ultimo = nullptr;
    QRect antes;
    for (QWidget* um = janela.nextInFocusChain(); um != &janela; um = um->nextInFocusChain()) {
        if (um->window() != &janela || !um->isVisibleTo(&janela) || !TabAlcanca(*um))
            continue;
        const QRect agora(um->mapTo(&janela, QPoint()), um->size());
        const bool aDireita = agora.left() >= antes.right() - Borda;
        const bool abaixo = agora.top() >= antes.bottom() - Borda;
        if (ultimo && !aDireita && !abaixo)
            defeitos.append(Nome(um) + u" comes after "_qs + Nome(ultimo) +
                            u" but stands before it"_qs);
        ultimo = um;
        antes = agora;
    }
    return defeitos;
}

QStringList Regras::Contrastes(QWidget& janela)
{
    QStringList defeitos;
    const QImage imagem = Imagem(janela, janela.rect());
    const auto visiveis = Visiveis(janela);
    for (const QWidget* controle : visiveis) {
        if (TemCorDada(*controle))
            continue;
        const QPoint canto = controle->mapTo(&janela, QPoint());
        const QRect visivel = controle->visibleRegion().boundingRect().translated(canto);
        const auto textos = TextosDe(*controle);
        for (const auto& [texto, lugar] : textos) {
            const QRect onde = lugar.translated(canto).intersected(visivel);
            const double contraste = Contraste::Maior(imagem, onde);
            if (onde.height() > 8 && onde.width() > 8 && !EstaCoberto(janela, *controle, onde) &&
                contraste < Contraste::Texto)
                defeitos.append(Nome(controle) +
                                u": the text \"%1\" has a contrast of %2"_qs.arg(texto.left(40))
                                    .arg(contraste, 0, 'f', 2));
        }
    }
    return defeitos;
}

QStringList Regras::Folhas(QWidget& janela)
{
    QStringList defeitos;
    const auto folhas = janela.findChildren<QTextEdit*>();
    for (QTextEdit* folha : folhas) {
        if (!folha->isVisibleTo(&janela))
            continue;
        // A caret is dark enough for any text.
        const int cursor = folha->cursorWidth();
        folha->setCursorWidth(0);
        const QImage imagem = Imagem(*folha->viewport(), folha->viewport()->rect());
        folha->setCursorWidth(cursor);
        const QColor fundo = Contraste::Fundo(imagem, imagem.rect());
        if (fundo != QColor(Qt::white) && fundo != QColor(0xC0, 0xC0, 0xC0))
            defeitos.append(Nome(folha) + u" is a sheet on "_qs + fundo.name());
        if (!folha->toPlainText().trimmed().isEmpty() &&
            Contraste::Maior(imagem, imagem.rect()) < Contraste::Texto)
            defeitos.append(Nome(folha) + u" is a sheet without dark text"_qs);
    }
    return defeitos;
}

QStringList Regras::Focos(QWidget& janela, QSet<QString>& vistos)
{
    QStringList defeitos;
    if (EDoSistema(janela) || !janela.isActiveWindow())
        return defeitos;
    const QPointer<QWidget> dono = QApplication::focusWidget();
    const auto visiveis = Visiveis(janela);
    for (QWidget* controle : visiveis) {
        const QString chave = janela.objectName() + u'/' + Nome(controle);
        if (!TabAlcanca(*controle) || vistos.contains(chave))
            continue;
        const QPoint canto = controle->mapTo(&janela, QPoint());
        const QRect lugar = QRect(canto, controle->size()).adjusted(-4, -4, 4, 4);
        if (QWidget* agora = QApplication::focusWidget())
            agora->clearFocus();
        const QImage sem = Imagem(janela, lugar);
        controle->setFocus(Qt::TabFocusReason);
        if (!controle->hasFocus())
            continue; // a sheet that is only read passes it on
        vistos.insert(chave);
        const int marcados = Contraste::Marcados(sem, Imagem(janela, lugar));
        if (marcados < MarcaDeFoco)
            defeitos.append(Nome(controle) +
                            u" shows the focus in %1 pixels only"_qs.arg(marcados));
    }
    if (dono)
        dono->setFocus(Qt::OtherFocusReason);
    return defeitos;
}
