#include "chords/Cifra.h"
