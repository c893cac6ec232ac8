// Where no desktop is known that could be asked.

#include "viewer/TelaAcesa.h"

TelaAcesa::TelaAcesa() = default;
TelaAcesa::~TelaAcesa() = default;
