#pragma once

#include <QList>
#include <QString>

#include <optional>

/// What a figure is to be, as a ratio to its reference.
struct Aim
{
    enum Kind { None, AtMost, AtLeast };
    Kind kind = None;
    double ratio = 0;
};

/// The one table that the benchmarks print.
class ResultTable
{
public:
    /// @param work       what was done
    /// @param measured   its time in nanoseconds; with AtLeast the reference may take that many
    ///                   times as long
    /// @param against    what it is compared with
    /// @param reference  the reference's time in nanoseconds, from the same run
    void Add(const QString& work, double measured, const QString& against, double reference,
             Aim aim = {});

    /// As Add, for other quantities, written as they are to be read.
    void AddText(const QString& work, const QString& measured, const QString& against, double ratio,
                 Aim aim = {});

    QString ToText() const;
    bool IsEmpty() const { return m_rows.isEmpty(); }

    /// @return a time as people read it: ns, µs, ms or s
    static QString Time(double nanoseconds);
    static QString Bytes(double bytes);

private:
    struct Row
    {
        QStringList cells;
    };

    QList<Row> m_rows;
};
