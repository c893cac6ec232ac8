#pragma once

#include <Qt>

class QKeyEvent;

/// Keys by the numbers of the physical keys, 1 to 255: a letter is its capital (S is 83) whatever
/// is held with it, the number block has numbers of its own, and a key keeps its number whichever
/// of its signs is typed (+ and = are both 187).
namespace CodigosTecla {

/// The number of a key that has none here; never 0.
constexpr int Desconhecida = 255;

/// @param tecla         a Qt::Key
/// @param modificadores  tell the number block from the main keyboard
/// @return 8 to 254, or Desconhecida
int Codigo(int tecla, Qt::KeyboardModifiers modificadores);

/// @return which of Shift (1), Ctrl (2) and Alt (4) are held, added up
int Estado_Shift(Qt::KeyboardModifiers modificadores);

/// What a key press says: its number, and what is held with it.
struct Pressao
{
    int codigo; ///< 8 to 254, or Desconhecida
    int shift;  ///< Shift 1, Ctrl 2, Alt 4, added up; AltGr is Ctrl and Alt
};

/// Reads a press. A key that types a sign without a number (AltGr+S types ß on a Brazilian
/// keyboard) still has the number of its letter: where the sign does not tell it, the key's place
/// on the keyboard does. That holds for what AltGr gives and for letters of other scripts; a sign
/// or an accented letter that a keyboard has there without AltGr is no such letter.
Pressao Le_Tecla(const QKeyEvent& tecla);

} // namespace CodigosTecla
