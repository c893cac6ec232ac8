#pragma once

#include "jet/RowStream.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// Takes the content of one frame apart. Everything in it is bounded by the frame.
class FrameContent
{
public:
    FrameContent(RowStream::Frame kind, QByteArray content)
        : m_kind(kind)
        , m_content(std::move(content))
    {
    }

    RowStream::Frame Kind() const { return m_kind; }

    /// Each reads on from where the last one ended.
    /// @throws RuntimeError StoreFailure when the frame ends before
    quint8 Byte();
    quint32 Whole();
    qint32 Signed() { return static_cast<qint32>(Whole()); }
    double Real();
    /// @return the bytes; they lie in this
    QByteArrayView Bytes();
    QString Name() { return QString::fromUtf8(Bytes()); }

    /// @throws RuntimeError StoreFailure when something is left
    void ExpectEnd() const;

private:
    const char* Take(qsizetype size);

    RowStream::Frame m_kind;
    QByteArray m_content;
    qsizetype m_at = 0;
};

/// Cuts what melodario-jet says into frames, as it comes in.
class FrameReader
{
public:
    /// @param bound  bytes that may come altogether
    explicit FrameReader(quint64 bound)
        : m_left(bound)
    {
    }

    /// @throws RuntimeError StoreFailure when more than the bound came
    void Add(const QByteArray& bytes);

    /// @return the next whole frame, nothing while more must come.
    /// @throws RuntimeError StoreFailure when a frame is longer than any
    std::optional<FrameContent> Next();

    /// @return true when all that came was read
    bool AtEnd() const { return m_at == m_bytes.size(); }

private:
    QByteArray m_bytes;
    qsizetype m_at = 0;
    quint64 m_left;
};
