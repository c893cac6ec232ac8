#pragma once

#include "runtime/RuntimeError.h"

/// The store failure of a statement that is none of the dialect or names what no table has: it
/// fails alike whenever it is tried, whatever state the catalogue is in.
class NotUnderstood final : public RuntimeError
{
public:
    using RuntimeError::RuntimeError;
};
