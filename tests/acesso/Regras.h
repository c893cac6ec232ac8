#pragma once

#include <QSet>
#include <QStringList>

class QWidget;

/// What every screen has to be for somebody who hears it or does not see it well. Each rule names
/// the controls of a shown window that break it, with what is wrong; an empty list is a good
/// window.
namespace Regras {

/// Whatever is no mere frame around other things has a name for a screen reader.
QStringList Nomes(QWidget& janela);

/// Each control is announced as what it is, and what can be pressed offers pressing.
QStringList Papeis(QWidget& janela);

/// A caption that ends with a colon belongs to a field, one that is there, and says so.
QStringList Rotulos(QWidget& janela);

/// Tab goes from left to right and downwards; it goes up only into a column further right.
QStringList Ordem(QWidget& janela);

/// Texts stand out from their ground, the disabled ones included. Colours that belong to the
/// program's look for good are left alone: those of the keys of the on-screen keyboard.
QStringList Contrastes(QWidget& janela);

/// A chord sheet is dark on white, or on the silver of a sheet that is being edited.
QStringList Folhas(QWidget& janela);

/// The focus shows: what Tab reaches is drawn differently when it has it, by more than a caret.
/// Gives each control the focus in turn and in the end back to who had it.
/// @param vistos  controls already looked at, which are left out; those of this window are added
QStringList Focos(QWidget& janela, QSet<QString>& vistos);

} // namespace Regras
