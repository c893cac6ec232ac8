#include "main/frmMensagem2.h"

#include "ui_frmMensagem2.h"

#include "controls/Dialogs.h"
#include "controls/Handler.h"
#include "controls/Resposta_Mensagem.h"

#include <QKeyEvent>
#include <QPointer>

frmMensagem2::frmMensagem2(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::frmMensagem2>())
{
    using Form = frmMensagem2;
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    constexpr auto clicado = &QPushButton::clicked;
    ConnectHandler(ui->cmdAbrir, clicado, this, &Form::cmdAbrir_Click);
    ConnectHandler(ui->cmdEditar, clicado, this, &Form::cmdEditar_Click);
    ConnectHandler(ui->cmdCopiar, clicado, this, &Form::cmdCopiar_Click);
    ConnectHandler(ui->cmdExcluir, clicado, this, &Form::cmdExcluir_Click);
    ConnectHandler(ui->cmdCancelar, clicado, this, &Form::cmdCancelar_Click);
}

frmMensagem2::~frmMensagem2() = default;

void frmMensagem2::Mostra(QWidget* parent)
{
    const ModalScope scope;
    // It goes with the form below it, should that close meanwhile.
    const QPointer<frmMensagem2> dialogo = new frmMensagem2(parent);
    dialogo->exec();
    delete dialogo;
}

void frmMensagem2::keyPressEvent(QKeyEvent* evento)
{
    if (evento->key() == Qt::Key_Escape)
        ui->cmdCancelar->click();
    else
        QDialog::keyPressEvent(evento);
}

void frmMensagem2::cmdAbrir_Click()
{
    Responde(Abrir);
}

void frmMensagem2::cmdEditar_Click()
{
    Responde(Editar);
}

void frmMensagem2::cmdCopiar_Click()
{
    Responde(Copiar);
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
    Responde(Cancelar);
}

void frmMensagem2::Responde(int resposta)
{
    Funcoes::Resposta_Mensagem = static_cast<std::int16_t>(resposta);
    accept();
}
