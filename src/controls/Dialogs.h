#pragma once

#include <QPoint>
#include <QString>

#include <optional>

class QWidget;

/// The icon of a message box.
enum class Icone { Nenhum, Critico, Pergunta, Exclamacao, Informacao };

/// The one door to modal boxes. The real ones are QMessageBox, QInputDialog and QFileDialog; a
/// test may put its own door in their place.
class Dialogs
{
public:
    virtual ~Dialogs() = default;

    /// A box with an OK button.
    virtual void Message(QWidget* parent, const QString& text, Icone icon,
                         const QString& title) = 0;

    /// A box with Yes and No buttons and the question icon. @return true for Yes
    virtual bool Question(QWidget* parent, const QString& text, const QString& title) = 0;

    /// An input box. @param corner  its upper-left corner on the screen; centred when empty
    /// @return what was typed; "" when cancelled
    virtual QString Input(QWidget* parent, const QString& prompt, const QString& title,
                          const QString& initial, std::optional<QPoint> corner) = 0;
};

namespace Funcoes {

/// Texts are shown as plain text, never read as markup. What the running handler changed in the
/// catalogue is committed before a box opens: nothing is told that is not durable.

/// @throws RuntimeError StoreFailure when the commit fails; no box is shown then
void Mostra_Mensagem(QWidget* parent, const QString& texto, Icone icone);

/// @return true for Yes. @throws as Mostra_Mensagem
bool Pergunta(QWidget* parent, const QString& texto);

/// @return what was typed; "" when cancelled. @throws as Mostra_Mensagem
QString Caixa_Entrada(QWidget* parent, const QString& pedido, const QString& titulo,
                      const QString& inicial, std::optional<QPoint> canto = std::nullopt);

} // namespace Funcoes

/// @return the door in use: the real boxes unless a test put its own there.
Dialogs& CurrentDialogs();

/// Puts a door in use; nullptr brings the real boxes back. @return the one before (nullptr: real)
Dialogs* SetDialogs(Dialogs* dialogs);
