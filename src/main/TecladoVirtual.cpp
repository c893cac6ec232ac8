#include "main/TecladoVirtual.h"

#include "artwork/Artwork.h"
#include "controls/Appearance.h"
#include "controls/ClickableLabel.h"
#include "controls/Handler.h"
#include "controls/ImageButton.h"
#include "controls/Twips.h"
#include "store/CodePage.h"

#include <QApplication>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// Codes of keys that are not their characters.
constexpr int Agudo = 255;
constexpr int Apaga = 256;
constexpr int Espaco = 32;

// Twips.
constexpr int Lado = 285;      ///< of a key
constexpr int Distancia = 300; ///< of one key's left edge to the next one's
constexpr int LadoApaga = 465;
constexpr int LadoEspaco = 2085;
constexpr int LarguraTeclas = 3885;
constexpr int AlturaTeclas = 1605;
constexpr int AbaixoDaCaixa = 60;

// Pixels.
constexpr int Borda = 5;
constexpr int LadoFechar = 24;
constexpr int LetraTecla = 12;

// A dynamic property that the style sheet looks at.
constexpr char Realcada[] = "realcada";

constexpr char Aparencia[] =
    "TecladoVirtual { background: palette(window); border: 1px solid palette(dark);"
    " border-radius: 8px; }"
    "ClickableLabel, ClickableLabel:hover { background: #e0e0e0; color: palette(button-text);"
    " border-radius: 3px; }"
    "ClickableLabel[realcada=\"true\"], ClickableLabel[realcada=\"true\"]:hover {"
    " background: #808080; color: #ffffff; }";

struct Tecla
{
    const char16_t* texto;
    int indice;
};

struct Fileira
{
    int topo;
    int esquerda; ///< of the first key
    std::vector<Tecla> teclas;
};

const std::vector<Fileira>& Fileiras()
{
    static const std::vector<Fileira> fileiras{
        {60,
         60,
         {{u"'", 39},
          {u"1", 49},
          {u"2", 50},
          {u"3", 51},
          {u"4", 52},
          {u"5", 53},
          {u"6", 54},
          {u"7", 55},
          {u"8", 56},
          {u"9", 57},
          {u"0", 48},
          {u"Bksp", Apaga}}},
        {360,
         120,
         {{u"Q", 81},
          {u"W", 87},
          {u"E", 69},
          {u"R", 82},
          {u"T", 84},
          {u"Y", 89},
          {u"U", 85},
          {u"I", 73},
          {u"O", 79},
          {u"P", 80},
          {u"´", Agudo},
          {u"^", 94}}},
        {660,
         300,
         {{u"A", 65},
          {u"S", 83},
          {u"D", 68},
          {u"F", 70},
          {u"G", 71},
          {u"H", 72},
          {u"J", 74},
          {u"K", 75},
          {u"L", 76},
          {u"Ç", 128}, // sends what the code page has at 128, which is no Ç
          {u"~", 126}}},
        {960,
         480,
         {{u"Z", 90},
          {u"X", 88},
          {u"C", 67},
          {u"V", 86},
          {u"B", 66},
          {u"N", 78},
          {u"M", 77},
          {u",", 44},
          {u".", 46},
          {u";", 59}}},
        {1260, 900, {{u" ESPAÇO", Espaco}}},
    };
    return fileiras;
}

int Largura(int indice)
{
    switch (indice) {
    case Apaga:
        return LadoApaga;
    case Espaco:
        return LadoEspaco;
    default:
        return Lado;
    }
}

QChar Caractere(int indice)
{
    if (indice == Agudo)
        return u'´';
    const char codigo = static_cast<char>(indice);
    return CodePage::ToUnicode(QByteArrayView(&codigo, 1)).at(0);
}

bool E_Acento(int indice)
{
    return indice == Agudo || indice == u'^' || indice == u'~';
}

/// @return the character in front of the caret; null where something is selected or none is there
QChar Antes_Do_Cursor(QWidget& controle)
{
    QInputMethodQueryEvent pergunta(Qt::ImSurroundingText | Qt::ImCursorPosition |
                                    Qt::ImCurrentSelection);
    QCoreApplication::sendEvent(&controle, &pergunta);
    const QString texto = pergunta.value(Qt::ImSurroundingText).toString();
    const int cursor = pergunta.value(Qt::ImCursorPosition).toInt();
    const bool selecao = !pergunta.value(Qt::ImCurrentSelection).toString().isEmpty();
    return selecao || cursor < 1 || cursor > texto.size() ? QChar() : texto.at(cursor - 1);
}

} // namespace

TecladoVirtual::TecladoVirtual(QWidget* parent)
    : QFrame(parent)
    , pctTeclas(new QWidget(this))
    , imgFecharTeclado(new ImageButton(this))
{
    QString aparencia = QString::fromLatin1(Aparencia);
    if (Appearance::IsDark()) // the keys' given ground is light
        aparencia.replace(u"palette(button-text)"_qs, Appearance::Text.name());
    setStyleSheet(aparencia);
    setCursor(Qt::ArrowCursor);
    pctTeclas->setObjectName(QStringLiteral("pctTeclas"));
    pctTeclas->setGeometry(Borda, Borda + LadoFechar, Twips::ToPixels(LarguraTeclas),
                           Twips::ToPixels(AlturaTeclas));
    pctTeclas->installEventFilter(this);
    setFixedSize(pctTeclas->geometry().right() + 1 + Borda,
                 pctTeclas->geometry().bottom() + 1 + Borda);

    imgFecharTeclado->setObjectName(QStringLiteral("imgFecharTeclado"));
    imgFecharTeclado->setImage(Artwork::Path(QStringLiteral("teclado-fechar")));
    imgFecharTeclado->setAccessibleName(QStringLiteral("Fechar o teclado"));
    imgFecharTeclado->setGeometry(width() - Borda - LadoFechar, Borda, LadoFechar, LadoFechar);
    ConnectHandler(imgFecharTeclado, &ImageButton::clicked, this,
                   &TecladoVirtual::imgFecharTeclado_Click);
    Monta_Teclas();
    if (parent)
        parent->installEventFilter(this);
    hide();
}

void TecladoVirtual::Monta_Teclas()
{
    QFont letra;
    letra.setPixelSize(LetraTecla); // the keys are measured in twips, so are their letters
    for (const Fileira& fileira : Fileiras()) {
        int esquerda = fileira.esquerda;
        for (const Tecla& tecla : fileira.teclas) {
            const int i = tecla.indice;
            auto* rotulo = new ClickableLabel(QString::fromUtf16(tecla.texto), pctTeclas);
            rotulo->setObjectName(u"lblTecla_" % QString::number(i));
            rotulo->setFont(letra);
            rotulo->setAlignment(Qt::AlignCenter);
            rotulo->setGeometry(Twips::ToPixels(esquerda), Twips::ToPixels(fileira.topo),
                                Twips::ToPixels(Largura(i)), Twips::ToPixels(Lado));
            rotulo->setMouseTracking(true);
            rotulo->installEventFilter(this);
            ConnectHandler(rotulo, &ClickableLabel::clicked, this,
                           [this, i] { lblTecla_Click(i); });
            lblTecla[static_cast<std::size_t>(i)] = rotulo;
            esquerda += Distancia;
        }
    }
    lblTecla[Apaga]->setAccessibleName(QStringLiteral("Apagar"));
    lblTecla[Espaco]->setAccessibleName(QStringLiteral("Espaço"));
}

void TecladoVirtual::Mostra_Teclado(QWidget& caixa)
{
    caixa.setFocus(Qt::OtherFocusReason);
    const QPoint embaixo(0, caixa.height() + Twips::ToPixels(AbaixoDaCaixa));
    m_lugar = caixa.mapTo(parentWidget(), embaixo);
    Posiciona();
    show();
    raise();
}

void TecladoVirtual::Oculta_Teclado()
{
    hide();
}

void TecladoVirtual::Posiciona()
{
    const QSize folga = parentWidget()->size() - size();
    move(std::clamp(m_lugar.x(), 0, std::max(0, folga.width())),
         std::clamp(m_lugar.y(), 0, std::max(0, folga.height())));
}

bool TecladoVirtual::eventFilter(QObject* objeto, QEvent* evento)
{
    const QEvent::Type tipo = evento->type();
    if (objeto == parent()) {
        if (tipo == QEvent::Resize)
            Posiciona();
        return false;
    }
    if (objeto == pctTeclas)
        return Toca_Entre_Teclas(*evento);
    // A finger arrives without having moved before.
    if (tipo == QEvent::MouseMove || tipo == QEvent::MouseButtonPress) {
        const auto tecla = std::find(lblTecla.cbegin(), lblTecla.cend(), objeto);
        if (tecla != lblTecla.cend())
            RunHandler([&] { lblTecla_MouseMove(static_cast<int>(tecla - lblTecla.cbegin())); });
    }
    return false;
}

/// The keys lie a pixel apart, which a finger cannot know: the gap to the right of a key and below
/// it is the key's. @return true for an event that goes no further
bool TecladoVirtual::Toca_Entre_Teclas(QEvent& evento)
{
    switch (evento.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        break;
    default:
        return false;
    }
    const auto& toque = static_cast<const QMouseEvent&>(evento);
    const int indice =
        toque.button() == Qt::LeftButton ? Tecla_Perto(toque.position().toPoint()) : 0;
    if (evento.type() != QEvent::MouseButtonRelease) {
        m_tocada = indice;
        if (indice > 0)
            RunHandler([&] { lblTecla_MouseMove(indice); });
    } else if (std::exchange(m_tocada, 0) == indice && indice > 0) {
        RunHandler([&] { lblTecla_Click(indice); });
    }
    return true;
}

/// @param lugar  in the pixels of pctTeclas
/// @return the key there; 0 where none is
int TecladoVirtual::Tecla_Perto(const QPoint& lugar) const
{
    const auto tecla = std::find_if(lblTecla.cbegin(), lblTecla.cend(), [&](const QWidget* uma) {
        return uma && uma->geometry().adjusted(0, 0, 1, 1).contains(lugar);
    });
    return tecla == lblTecla.cend() ? 0 : static_cast<int>(tecla - lblTecla.cbegin());
}

// What falls beside the keys is none of the form's business.
void TecladoVirtual::mousePressEvent(QMouseEvent* evento)
{
    evento->accept();
}

void TecladoVirtual::mouseReleaseEvent(QMouseEvent* evento)
{
    evento->accept();
}

QChar TecladoVirtual::Acentuada(QChar acento, QChar letra)
{
    struct Acentuadas
    {
        char16_t acento;
        QStringView letras;
        QStringView capitais;
    };
    static constexpr std::array<Acentuadas, 3> conhecidas{{
        {u'´', u"AEIOUC", u"ÁÉÍÓÚÇ"},
        {u'^', u"AEIOU", u"ÂÊÎÔÛ"},
        {u'~', u"AON", u"ÃÕÑ"},
    }};
    for (const Acentuadas& grupo : conhecidas) {
        const qsizetype lugar = grupo.letras.indexOf(letra);
        if (acento == grupo.acento && lugar >= 0)
            return grupo.capitais.at(lugar);
    }
    return {};
}

void TecladoVirtual::lblTecla_Click(int indice)
{
    // As with any keyboard, nobody waits until the key has been processed; each waits for its turn.
    const QPointer<QWidget> alvo = QApplication::focusWidget();
    const auto digita = [this, alvo, indice] {
        RunHandler([&] {
            if (alvo)
                Digita(*alvo, indice);
        });
    };
    QMetaObject::invokeMethod(this, digita, Qt::QueuedConnection);
}

void TecladoVirtual::Digita(QWidget& alvo, int indice)
{
    const QPointer<QWidget> vivo(&alvo);
    const QChar acento = m_acentuado == &alvo ? m_acento : QChar();
    m_acento = QChar();
    if (indice == Apaga) {
        Aperta(alvo, Qt::Key_Backspace, QStringLiteral("\b"));
        return;
    }
    QChar caractere = Caractere(indice);
    const QChar junto = Acentuada(acento, caractere);
    if (!junto.isNull() && Antes_Do_Cursor(alvo) == acento) {
        caractere = junto;
        Aperta(alvo, Qt::Key_Backspace, QStringLiteral("\b"));
    }
    if (vivo)
        Aperta(alvo, caractere.unicode(), QString(caractere));
    if (E_Acento(indice)) {
        m_acento = caractere;
        m_acentuado = vivo;
    }
}

/// @param tecla  a Qt::Key, which for characters is their code
void TecladoVirtual::Aperta(QWidget& alvo, int tecla, const QString& texto)
{
    const QPointer<QWidget> vivo(&alvo);
    const bool capital = !texto.isEmpty() && texto.at(0).isUpper();
    const Qt::KeyboardModifiers junto = capital ? Qt::ShiftModifier : Qt::NoModifier;
    for (const QEvent::Type tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent evento(tipo, tecla, junto, texto);
        if (vivo)
            QCoreApplication::sendEvent(vivo, &evento);
    }
}

void TecladoVirtual::lblTecla_MouseMove(int indice)
{
    for (int i = 1; i <= MaiorIndice; ++i) {
        ClickableLabel* tecla = lblTecla[static_cast<std::size_t>(i)];
        if (!tecla || tecla->property(Realcada).toBool() == (i == indice))
            continue;
        tecla->setProperty(Realcada, i == indice);
        tecla->style()->unpolish(tecla);
        tecla->style()->polish(tecla);
    }
}

void TecladoVirtual::imgFecharTeclado_Click()
{
    Oculta_Teclado();
}
