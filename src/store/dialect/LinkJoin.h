#pragma once

#include "store/dialect/Syntax.h"

/// Rewrites a resolved query so that it gives the same rows sooner:
///
///     SELECT DISTINCT a.ID, a.X FROM a INNER JOIN b ON a.ID = b.ID_A WHERE a... AND b...
///     SELECT a.ID, a.X FROM a WHERE a... AND a.ID IN (SELECT b.ID_A FROM b WHERE b...)
///
/// The join multiplies each row of a, and DISTINCT folds the copies again, comparing whole song
/// texts to do so. Where the key of a is shown and nothing of b is, asking whether a link exists
/// says the same. A DISTINCT over one table that shows its key goes likewise.
///
/// Any other query stays as it is.
void FoldLinkJoin(Syntax::Select& select);
