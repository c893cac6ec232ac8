#pragma once

#include <QWidget>

namespace Funcoes {

/// Minimises a form; its place and size come back with it.
inline void Minimiza_Janela(QWidget& janela)
{
    janela.showMinimized();
}

} // namespace Funcoes
