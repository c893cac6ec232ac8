#pragma once

#include <QString>

class ExchangeSongs;

/// @return what is told at the end of an import about the songs of a file that are none: each one's
///         place and title, and the fields that are to blame. At least one is faulty.
QString Texto_Defeitos(const ExchangeSongs& musicas);
