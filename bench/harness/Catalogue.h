#pragma once

#include "support/TestCatalogue.h"

/// A catalogue of generated songs of some 2 KB, the same ones on every machine, each with one to
/// three of a dozen themes.
class GeneratedCatalogue : public TestCatalogue
{
public:
    explicit GeneratedCatalogue(int songs);
};
