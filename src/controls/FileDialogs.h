#pragma once

#include <QString>

class QWidget;

/// What a file or folder picker is asked to be.
struct Pedido_Arquivo
{
    enum Especie { Abrir, Salvar, Pasta };

    Especie especie = Abrir;
    QString titulo;
    /// Pairs of a description, which is shown, and its patterns, which are divided by ';':
    /// "Textos (*.txt)|*.txt|Tudo|*". Blanks around the parts do not count. "" lets everything be
    /// seen. Folders have none.
    QString filtro = {};
    /// Put behind the name of a file to save that ends otherwise; "*.mld" and "mld" are the same.
    QString extensao = {};
    /// Where to begin; "" for where the last picker ended, at first the user's documents.
    QString pasta = {};
    /// The control's name on its form.
    QString nome = QStringLiteral("CommonDialog");
};

/// The one door to the desktop's own pickers. The real one is QFileDialog; a test may put its own
/// door in its place.
class FileDialogs
{
public:
    virtual ~FileDialogs() = default;

    /// @param pedido  its folder is filled in already
    /// @return the full path as it was chosen; "" when cancelled
    virtual QString Choose(QWidget* parent, const Pedido_Arquivo& pedido) = 0;
};

namespace Funcoes {

/// Lets the user pick a file or a folder. Existing files are chosen for saving without a question.
/// What the running handler changed in the catalogue is committed first.
/// @return the path with the platform's separators, a folder without one at its end unless it is a
///         root; "" when cancelled
/// @throws RuntimeError StoreFailure when the commit fails; nothing is shown then
QString Escolhe_Arquivo(QWidget* parent, const Pedido_Arquivo& pedido);

} // namespace Funcoes

/// @return the door in use: the real pickers unless a test put its own there.
FileDialogs& CurrentFileDialogs();

/// Puts a door in use; nullptr brings the real pickers back. @return the one before (nullptr: real)
FileDialogs* SetFileDialogs(FileDialogs* dialogs);
