#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// Turns the bytes of an exchange file into what the XML parser is given, piece by piece.
///
/// A mark of UTF-8 or UTF-16 at the start tells the encoding, whatever the declaration says, and so
/// does UTF-16 without a mark. A declaration of iso-8859-1 means Windows-1252, as our own files do.
/// Bytes of any other declared encoding are left to the parser.
class ExchangeDecoder
{
public:
    enum class Encoding {
        MarkedUtf8,  ///< given on as it is, mark included
        Utf16Little, ///< becomes UTF-8
        Utf16Big,    ///< becomes UTF-8
        CodePage,    ///< becomes UTF-8
        AsDeclared,  ///< given on as it is; the parser honours the declaration
    };

    /// How many bytes of the start are enough to know the encoding.
    static constexpr qsizetype StartSize = 4096;

    /// @param start  the file's first bytes: StartSize, or all that there are
    explicit ExchangeDecoder(QByteArrayView start);

    Encoding Kind() const noexcept { return m_encoding; }

    /// @return true where the parser has to take the text for UTF-8, whatever is declared.
    bool OverridesDeclaration() const noexcept { return m_encoding != Encoding::AsDeclared; }

    /// Appends what the next bytes of the file are. @param bytes  of any length
    /// @return false when they are no text: a code of zero, half a character
    bool Decode(QByteArrayView bytes, QByteArray& out);

    /// To be called behind the last byte. @return false when half a character is left
    bool Finish() const noexcept;

private:
    bool DecodeUtf16(QByteArrayView bytes, QByteArray& out);
    bool PutUnit(char16_t unit, QByteArray& out);

    Encoding m_encoding;
    char m_half = 0; ///< first byte of a unit whose second one is to come
    bool m_hasHalf = false;
    char16_t m_high = 0; ///< high surrogate whose low one is to come; 0 for none
};
