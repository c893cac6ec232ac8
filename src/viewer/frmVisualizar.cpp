#include "viewer/frmVisualizar.h"

#include "controls/AccessibleControls.h"
#include "controls/Handler.h"
#include "ui_frmVisualizar.h"
#include "viewer/TeclasEdicao.h"
#include "viewer/TelaAcesa.h"

#include <QTimer>

namespace {

constexpr int IntervaloRolagem = 150;   // ms: the automatic scrolling's period at first
constexpr int IntervaloContador = 1000; // ms

QTimer* Novo_Timer(QWidget* form, const QString& nome, int intervalo)
{
    auto* timer = new QTimer(form);
    timer->setObjectName(nome);
    timer->setInterval(intervalo);
    return timer;
}

} // namespace

frmVisualizar::frmVisualizar()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
    , ui(std::make_unique<Ui::frmVisualizar>())
    , TimerRolagem(Novo_Timer(this, u"TimerRolagem"_qs, IntervaloRolagem))
    , tmrContador(Novo_Timer(this, u"tmrContador"_qs, IntervaloContador))
    , Teclas_Edicao(new TeclasEdicao(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    QAccessible::installFactory(MakeAccessible<frmVisualizar, AccessibleForm>);
    ui->setupUi(this);
    TimerRolagem->setProperty("Tag", QString::number(IntervaloRolagem));
    Prepara_Aparencia();
    Prepara_Teclado();
    Prepara_Rolagem();
    Prepara_Contagem();
    Liga_Eventos();
    Liga_Edicao();
}

frmVisualizar::~frmVisualizar() = default;

void frmVisualizar::Show()
{
    try {
        Form_Load();
    } catch (...) {
        tmrContador->stop(); // it outlives the box that tells why: nothing was played
        deleteLater();
        throw;
    }
    Tela_Acesa = std::make_unique<TelaAcesa>();
    show();
}

void frmVisualizar::Form_Load()
{
    tmrContador->start();
    Versao = 2;
    Confugura_Posicao();

    if (ID_Musica > 0) {
        ID_Lista = 0;
        Carrega_Lista_Inicial();
    } else if (ID_Lista > 0) {
        Carrega_Lista_Inicial();
        if (ui->cmbLista->ListCount() > 0)
            ID_Musica = static_cast<double>(ui->cmbLista->ItemData(0));
        Mostra_Proximo_Anterior();
    }

    Carrega_Musica();
    Editando = false;
    Ajuste_Fonte = 0;
    Deslocamento = 0;
    Exibe_Cifras = true;
    Atualiza_Musica(Versao);
}

void frmVisualizar::Liga_Eventos()
{
    using Form = frmVisualizar;
    constexpr auto click = &QAbstractButton::clicked;

    ConnectHandler(ui->cmdSobe, click, this, &Form::cmdSobe_Click);
    ConnectHandler(ui->cmdDesce, click, this, &Form::cmdDesce_Click);
    ConnectHandler(ui->cmdTomOriginal, click, this, &Form::cmdTomOriginal_Click);
    ConnectHandler(ui->cmdLetra, click, this, &Form::cmdLetra_Click);
    ConnectHandler(ui->cmdAumentaFonte, click, this, &Form::cmdAumentaFonte_Click);
    ConnectHandler(ui->cmdDiminuiFonte, click, this, &Form::cmdDiminuiFonte_Click);
    ConnectHandler(ui->lblVersao, &ClickableLabel::clicked, this, &Form::lblVersao_Click);
    ConnectHandler(ui->cmbLista, &ComboBox::Click, this, &Form::cmbLista_Click);
    ConnectHandler(ui->cmdAnterior, click, this, &Form::cmdAnterior_Click);
    ConnectHandler(ui->cmdProxima, click, this, &Form::cmdProxima_Click);
    ConnectHandler(ui->cmdFechar, click, this, &Form::cmdFechar_Click);
    ConnectHandler(ui->cmdMinimizar, click, this, &Form::cmdMinimizar_Click);
}

RichTextBox& frmVisualizar::Caixa(std::int16_t versao) const
{
    return versao == 1 ? *ui->RichTextBox_1 : *ui->RichTextBox_2;
}
