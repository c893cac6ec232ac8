#pragma once

#include <QString>

/// @return the About box's text: the version and the credits, lines separated by CR LF.
QString Texto_Sobre();
