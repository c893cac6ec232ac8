#pragma once

#include <QStringList>

class QTextCharFormat;
class QTextCursor;
class QTextDocument;

/// What a text document cannot hold or cannot show in any useful time is held by a stand-in: one
/// character that no text uses, shown as the sign for a missing one, whose format says what it
/// stands for. Whoever reads the document through here gets the text back as it was put in.
///
/// Stand-ins are taken for
/// - U+2029, U+FDD0 and U+FDD1, which a text document takes for breaks of its own;
/// - the rest of very many marks on one letter, and the rest of a line that has very many
///   characters which only shaping can measure: a million accents would take Qt ten seconds at
///   every change.
class StandIns
{
public:
    /// What is shown as it is.
    struct Limits
    {
        qsizetype shaped = 10'000; ///< characters of one line that need shaping
        qsizetype marks = 64;      ///< marks on one letter
    };

    StandIns();
    explicit StandIns(Limits limits);

    /// @return false when text, which comes from a document, has no stand-in for certain
    static bool MayBeIn(QStringView text);

    /// Begins a new document; those put into the one before can no longer be read.
    void Clear();

    /// The next text is not put where the one before was.
    void BeginLine();

    /// Puts text where the cursor is, which must be where the text before was put, unless BeginLine
    /// was called in between.
    /// @param text  lines separated by LF
    void Insert(QTextCursor& cursor, QStringView text, const QTextCharFormat& look);

    /// @param text    of a fragment of a document that Insert wrote
    /// @param format  the fragment's
    /// @return the text that it stands for
    QString Restored(const QString& text, const QTextCharFormat& format) const;

    /// @param from, to  positions in the document, that before to
    /// @return the text between them, lines separated by CR LF; a no-break space stays one
    QString Text(const QTextDocument& document, int from, int to) const;

    /// @return the text of the whole document.
    QString Text(const QTextDocument& document) const;

private:
    qsizetype Drawable(QStringView text);
    QStringView Held(QStringView text);
    static void Put(QTextCursor& cursor, qsizetype number, QTextCharFormat look);

    Limits m_limits;
    qsizetype m_shaped = 0;  ///< characters of the line so far that need shaping
    qsizetype m_marks = 0;   ///< marks on the letter before
    QStringList m_originals; ///< what each stand-in's number stands for
};
