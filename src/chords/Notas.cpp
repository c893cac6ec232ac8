#include "chords/Notas.h"
