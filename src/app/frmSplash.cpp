#include "app/frmSplash.h"

#include "ui_frmSplash.h"

#include "artwork/Artwork.h"
#include "artwork/VectorPicture.h"
#include "controls/AccessibleControls.h"
#include "controls/Appearance.h"
#include "controls/Handler.h"
#include "runtime/Version.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include <utility>

namespace {

constexpr int EsperaMs = 2500;

} // namespace

frmSplash::frmSplash(QWidget& principal, std::function<void()> carrega)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
    , ui(std::make_unique<Ui::frmSplash>())
    , m_principal(principal)
    , m_carrega(std::move(carrega))
    , Timer1(new QTimer(this))
{
    QAccessible::installFactory(MakeAccessible<frmSplash, AccessibleForm>);
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(size());
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setTimerType(Qt::PreciseTimer); // a coarse one may come a twentieth too early
    // Its ground is a picture of its own, light under every look.
    const auto pinta = [](QLabel* rotulo, QColor cor) {
        QPalette palette = rotulo->palette();
        palette.setColor(QPalette::WindowText, cor);
        rotulo->setPalette(palette);
    };
    pinta(ui->lblProductName, Appearance::Text);
    for (QLabel* rotulo : {ui->lblVersion, ui->lblCompanyProduct, ui->lblWarning})
        pinta(rotulo, Appearance::MutedText);
    ConnectUnattended(Timer1, &QTimer::timeout, this, &frmSplash::Timer1_Timer);
    Mostra_Logotipo();
}

frmSplash::~frmSplash() = default;

void frmSplash::Form_Load()
{
    ui->lblVersion->setText(u"Versão " % Version::ToText());
    m_principal.setVisible(false);
    RunHandler(m_carrega);
    Centraliza();
    Timer1->setInterval(EsperaMs);
    Timer1->start();
}

void frmSplash::Inicializar()
{
    if (std::exchange(m_iniciado, true))
        return;
    Timer1->stop();
    m_principal.show();
    m_principal.activateWindow();
    close();
}

void frmSplash::Mostra_Logotipo()
{
    const qreal escala = devicePixelRatio();
    QPixmap imagem(ui->imgLogo->minimumSize() * escala);
    imagem.fill(Qt::transparent);
    QPainter pintor(&imagem);
    VectorPicture(Artwork::Path(QStringLiteral("logo")))
        .Render(pintor, QRectF(imagem.rect()), Qt::IgnoreAspectRatio);
    pintor.end();
    imagem.setDevicePixelRatio(escala);
    ui->imgLogo->setPixmap(imagem);
}

void frmSplash::Centraliza()
{
    QRect lugar = rect();
    lugar.moveCenter(screen()->availableGeometry().center());
    move(lugar.topLeft());
}

void frmSplash::Timer1_Timer()
{
    Inicializar();
}

void frmSplash::Form_KeyPress()
{
    Inicializar();
}

void frmSplash::keyPressEvent(QKeyEvent* /*evento*/)
{
    RunHandler([this] { Form_KeyPress(); });
}

void frmSplash::mousePressEvent(QMouseEvent* evento)
{
    evento->accept(); // else the release that makes it a click would not come here
}

void frmSplash::mouseReleaseEvent(QMouseEvent* evento)
{
    // The frame covers the whole form; it, the logo and the labels leave their clicks to the form.
    if (evento->button() == Qt::LeftButton && rect().contains(evento->position().toPoint()))
        RunHandler([this] { Inicializar(); });
}

void frmSplash::closeEvent(QCloseEvent* evento)
{
    // Closed from outside: without the main form the program would run on unseen.
    RunHandler([this] { Inicializar(); });
    evento->accept();
}

void frmSplash::paintEvent(QPaintEvent* /*evento*/)
{
    QPainter pintor(this);
    pintor.fillRect(rect(), Appearance::Surface);
    const VectorPicture arte(Artwork::Path(QStringLiteral("splash")));
    const QSizeF tamanho =
        QSizeF(arte.DefaultSize()).scaled(width(), height(), Qt::KeepAspectRatio);
    arte.Render(pintor, QRectF(QPointF(), tamanho));
    pintor.setPen(Appearance::Border);
    pintor.drawRect(rect().adjusted(0, 0, -1, -1));
}

bool frmSplash::focusNextPrevChild(bool /*proximo*/)
{
    return false; // Tab is a key press like any other
}
