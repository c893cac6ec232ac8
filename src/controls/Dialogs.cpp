#include "controls/Dialogs.h"

#include "controls/Handler.h"
#include "controls/HeldKeys.h"
#include "controls/OneLinePaste.h"

#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

QString Titulo()
{
    return QStringLiteral("Melodario");
}

/// Runs a box. It may be destroyed with its parent while it stands open: a viewer that is closed
/// takes its boxes along.
/// @return its result; Rejected when it was destroyed
template <typename Box>
int Execute(const QPointer<Box>& box)
{
    const int result = box->exec();
    return box ? result : int{QDialog::Rejected};
}

QMessageBox::Icon IconOf(Icone icon)
{
    switch (icon) {
    case Icone::Critico:
        return QMessageBox::Critical;
    case Icone::Pergunta:
        return QMessageBox::Question;
    case Icone::Exclamacao:
        return QMessageBox::Warning;
    case Icone::Informacao:
        return QMessageBox::Information;
    case Icone::Nenhum:
        break;
    }
    return QMessageBox::NoIcon;
}

/// What a box shows of a text: its beginning and its end, where the question stands. No text that
/// anybody means to be read is as long; the buttons of a longer one would be off every screen.
QString Shown(const QString& text)
{
    constexpr qsizetype First = 1400; // characters
    constexpr qsizetype Last = 400;
    constexpr qsizetype FirstLines = 20;
    constexpr qsizetype LastLines = 5;
    const QString gap = u' ' % QChar(0x2026) % u' ';
    QString shown = text;
    if (text.size() > First + Last)
        shown = text.first(First) + gap + text.last(Last);
    const QStringList lines = shown.split(u'\n');
    if (lines.size() > FirstLines + LastLines)
        shown = (lines.first(FirstLines) + QStringList(gap) + lines.last(LastLines)).join(u'\n');
    return shown;
}

/// @param corner  of a box, on the screen
/// @return how wide the box may be there, in pixels
int RoomAt(const QPoint& corner)
{
    const QScreen* screen = QGuiApplication::screenAt(corner);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen->geometry().right() + 1 - corner.x();
}

class RealDialogs final : public Dialogs
{
public:
    void Message(QWidget* parent, const QString& text, Icone icon, const QString& title) override
    {
        const QPointer<QMessageBox> box = NewBox(parent, text, icon, title);
        box->setStandardButtons(QMessageBox::Ok);
        new HeldKeys(*box, HeldKeys::EveryKey);
        Execute(box);
        delete box;
    }

    bool Question(QWidget* parent, const QString& text, const QString& title) override
    {
        const QPointer<QMessageBox> box = NewBox(parent, text, Icone::Pergunta, title);
        box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box->setDefaultButton(QMessageBox::Yes);
        box->setEscapeButton(QMessageBox::No);
        new HeldKeys(*box, HeldKeys::EveryKey);
        const bool yes = Execute(box) == QMessageBox::Yes;
        delete box;
        return yes;
    }

    QString Input(QWidget* parent, const QString& prompt, const QString& title,
                  const QString& initial, std::optional<QPoint> corner) override
    {
        const QPointer<QInputDialog> box = new QInputDialog(parent);
        box->setInputMode(QInputDialog::TextInput);
        box->setWindowTitle(title);
        box->setLabelText(prompt);
        const auto edits = box->findChildren<QLineEdit*>();
        for (QLineEdit* edit : edits) {
            edit->setMaxLength(std::numeric_limits<int>::max()); // else the initial text is cut
            new OneLinePaste(*edit);
        }
        box->setTextValue(initial);
        box->sizeHint(); // builds the layout
        const QMargins margins = box->layout()->contentsMargins();
        const int room =
            corner ? RoomAt(*corner) - margins.left() - margins.right() - Frame : InputWidth;
        const auto labels = box->findChildren<QLabel*>();
        for (QLabel* label : labels) {
            label->setTextFormat(Qt::PlainText);
            label->setWordWrap(true);
            label->setMinimumWidth(std::clamp(room, 0, InputWidth));
        }
        new HeldKeys(*box, HeldKeys::Enter);
        if (corner)
            box->move(*corner);
        QString answer;
        if (Execute(box) == QDialog::Accepted)
            answer = box->textValue();
        delete box;
        return answer;
    }

private:
    /// A long prompt wraps at this width in pixels, and a path has room to be read.
    static constexpr int InputWidth = 440;
    /// What a window's frame may take on both sides together, in pixels.
    static constexpr int Frame = 16;

    static QMessageBox* NewBox(QWidget* parent, const QString& text, Icone icon,
                               const QString& title)
    {
        auto* box = new QMessageBox(parent);
        box->setTextFormat(Qt::PlainText);
        box->setIcon(IconOf(icon));
        box->setWindowTitle(title);
        box->setText(Shown(text));
        return box;
    }
};

Dialogs* testDialogs = nullptr;

} // namespace

Dialogs& CurrentDialogs()
{
    static RealDialogs real;
    return testDialogs ? *testDialogs : real;
}

Dialogs* SetDialogs(Dialogs* dialogs)
{
    return std::exchange(testDialogs, dialogs);
}

namespace Funcoes {

void Mostra_Mensagem(QWidget* parent, const QString& texto, Icone icone)
{
    const ModalScope scope;
    CurrentDialogs().Message(parent, texto, icone, Titulo());
}

bool Pergunta(QWidget* parent, const QString& texto)
{
    const ModalScope scope;
    return CurrentDialogs().Question(parent, texto, Titulo());
}

QString Caixa_Entrada(QWidget* parent, const QString& pedido, const QString& titulo,
                      const QString& inicial, std::optional<QPoint> canto)
{
    const ModalScope scope;
    return CurrentDialogs().Input(parent, pedido, titulo, inicial, canto);
}

} // namespace Funcoes
