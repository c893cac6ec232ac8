#include "controls/Dialogs.h"

#include "store/Connection.h"

#include <QInputDialog>
#include <QMessageBox>

#include <utility>

namespace {

const auto Titulo = QStringLiteral("Melodario");

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

class RealDialogs final : public Dialogs
{
public:
    void Message(QWidget* parent, const QString& text, Icone icon, const QString& title) override
    {
        QMessageBox box(IconOf(icon), title, text, QMessageBox::Ok, parent);
        box.setTextFormat(Qt::PlainText);
        box.exec();
    }

    bool Question(QWidget* parent, const QString& text, const QString& title) override
    {
        QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No,
                        parent);
        box.setTextFormat(Qt::PlainText);
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
        return box.exec() == QMessageBox::Yes;
    }

    QString Input(QWidget* parent, const QString& prompt, const QString& title,
                  const QString& initial, std::optional<QPoint> corner) override
    {
        QInputDialog box(parent);
        box.setInputMode(QInputDialog::TextInput);
        box.setWindowTitle(title);
        box.setLabelText(prompt);
        box.setTextValue(initial);
        if (corner)
            box.move(*corner);
        return box.exec() == QDialog::Accepted ? box.textValue() : QString();
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
    Conexao.CommitBatch();
    CurrentDialogs().Message(parent, texto, icone, Titulo);
}

bool Pergunta(QWidget* parent, const QString& texto)
{
    Conexao.CommitBatch();
    return CurrentDialogs().Question(parent, texto, Titulo);
}

QString Caixa_Entrada(QWidget* parent, const QString& pedido, const QString& titulo,
                      const QString& inicial, std::optional<QPoint> canto)
{
    Conexao.CommitBatch();
    return CurrentDialogs().Input(parent, pedido, titulo, inicial, canto);
}

} // namespace Funcoes
