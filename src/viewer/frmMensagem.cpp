#include "viewer/frmMensagem.h"

#include "controls/Resposta_Mensagem.h"
#include "ui_frmMensagem.h"

#include <QFocusEvent>

#include <algorithm>

frmMensagem::frmMensagem(QWidget* parent)
    : AnswerDialog(parent)
    , ui(std::make_unique<Ui::frmMensagem>())
{
    using Form = frmMensagem;
    ui->setupUi(this);
    constexpr auto clicado = &QPushButton::clicked;
    ConnectHandler(ui->cmdSalvar, clicado, this, &Form::cmdSalvar_Click);
    ConnectHandler(ui->cmdSalvarIgualar, clicado, this, &Form::cmdSalvarIgualar_Click);
    ConnectHandler(ui->cmdNaoSalvar, clicado, this, &Form::cmdNaoSalvar_Click);
    ConnectHandler(ui->cmdCancelar, clicado, this, &Form::cmdCancelar_Click);
    Prepara_Dicas();
    Form_Load();
}

frmMensagem::~frmMensagem() = default;

void frmMensagem::Form_Load()
{
    Funcoes::Resposta_Mensagem = 0;
    ui->lblObs->setText(QString());
}

void frmMensagem::Prepara_Dicas()
{
    // A button's hint is its description, so that a screen reader finds it too.
    int largura = 0;
    for (QPushButton* botao : findChildren<QPushButton*>()) {
        botao->installEventFilter(this);
        const int dica =
            ui->lblObs->fontMetrics().horizontalAdvance(botao->accessibleDescription());
        largura = std::max(largura, dica);
    }
    // Hints come and go without the dialog changing its size.
    ui->lblObs->setMinimumWidth(largura);
    ui->lblObs->setFixedHeight(ui->lblObs->fontMetrics().lineSpacing());
    ui->lblObs->setForegroundRole(QPalette::PlaceholderText);

    setMouseTracking(true);
    for (QWidget* controle : findChildren<QWidget*>())
        controle->setMouseTracking(true);
}

bool frmMensagem::eventFilter(QObject* watched, QEvent* event)
{
    auto* botao = qobject_cast<QPushButton*>(watched);
    if (!botao)
        return AnswerDialog::eventFilter(watched, event);
    const bool movimento = event->type() == QEvent::MouseMove;
    bool dica = movimento || event->type() == QEvent::Enter;
    // Focus that is there from the beginning tells nothing: the line begins empty.
    if (event->type() == QEvent::FocusIn)
        dica = botao->hasFocus() &&
               static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason;
    if (dica)
        ui->lblObs->setText(botao->accessibleDescription());
    // A button hands a mere movement on to the form, which would clear the line again.
    return movimento && static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton;
}

void frmMensagem::mouseMoveEvent(QMouseEvent* event)
{
    ui->lblObs->setText(QString());
    AnswerDialog::mouseMoveEvent(event);
}

void frmMensagem::cmdSalvar_Click()
{
    Answer(Salvar);
}

void frmMensagem::cmdSalvarIgualar_Click()
{
    Answer(SalvarIgualar);
}

void frmMensagem::cmdNaoSalvar_Click()
{
    Answer(NaoSalvar);
}

void frmMensagem::cmdCancelar_Click()
{
    Answer(Cancelar);
}
