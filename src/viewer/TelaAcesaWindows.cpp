#include "viewer/TelaAcesa.h"

#include <windows.h>

namespace {

int abertas = 0; // the wish belongs to the thread, not to one viewer

} // namespace

TelaAcesa::TelaAcesa()
{
    if (abertas++ == 0)
        SetThreadExecutionState(ES_CONTINUOUS | ES_DISPLAY_REQUIRED | ES_SYSTEM_REQUIRED);
}

TelaAcesa::~TelaAcesa()
{
    if (--abertas == 0)
        SetThreadExecutionState(ES_CONTINUOUS);
}
