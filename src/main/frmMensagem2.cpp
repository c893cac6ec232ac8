#include "main/frmMensagem2.h"

#include "ui_frmMensagem2.h"

#include "controls/Dialogs.h"
#include "controls/Resposta_Mensagem.h"

#include <QPointer>

frmMensagem2::frmMensagem2(QWidget* parent)
    : AnswerDialog(parent)
    , ui(std::make_unique<Ui::frmMensagem2>())
{
    using Form = frmMensagem2;
    ui->setupUi(this);
    constexpr auto clicado = &QPushButton::clicked;
    ConnectHandler(ui->cmdAbrir, clicado, this, &Form::cmdAbrir_Click);
    ConnectHandler(ui->cmdEditar, clicado, this, &Form::cmdEditar_Click);
    ConnectHandler(ui->cmdCopiar, clicado, this, &Form::cmdCopiar_Click);
    ConnectHandler(ui->cmdExcluir, clicado, this, &Form::cmdExcluir_Click);
    ConnectHandler(ui->cmdCancelar, clicado, this, &Form::cmdCancelar_Click);
}

frmMensagem2::~frmMensagem2() = default;

void frmMensagem2::cmdAbrir_Click()
{
    Answer(Abrir);
}

void frmMensagem2::cmdEditar_Click()
{
    Answer(Editar);
}

void frmMensagem2::cmdCopiar_Click()
{
    Answer(Copiar);
}

void frmMensagem2::cmdExcluir_Click()
{
    Funcoes::Resposta_Mensagem = Cancelar;
    const QPointer<frmMensagem2> aberto(this);
    if (Funcoes::Pergunta(this, QStringLiteral("Deseja realmente excluir essa lista?")))
        Funcoes::Resposta_Mensagem = Excluir;
    if (aberto)
        accept();
}

void frmMensagem2::cmdCancelar_Click()
{
    Answer(Cancelar);
}
