#pragma once

#include <QString>
#include <QTemporaryDir>

#include <optional>

/// The file that a repaired catalogue goes to. It is written under another name and gets its own
/// only when it is whole; nothing stays of one that was not.
class RepairedFile
{
public:
    /// @param path  where the catalogue is wanted; "-" is the standard output
    /// @param simulate  it is written where nobody sees it, and gone again afterwards
    /// @throws RuntimeError FileFailure when there is no place to write to
    RepairedFile(QString path, bool force, bool simulate);
    ~RepairedFile();
    RepairedFile(const RepairedFile&) = delete;
    RepairedFile& operator=(const RepairedFile&) = delete;

    /// @throws RuntimeError FileFailure when a repaired catalogue must not go there: a file is
    /// there already, it is the damaged one itself, or the rest of an interrupted write lies beside
    /// it
    static void CheckPlace(const QString& path, const QString& catalogue, bool force);

    /// @return where to write; no file is there yet
    const QString& DraftPath() const noexcept { return m_draft; }

    /// Gives the file its name, or writes it to the standard output.
    /// @throws RuntimeError FileFailure
    void Keep();

private:
    QString m_path;
    QString m_draft;
    std::optional<QTemporaryDir> m_folder;
    bool m_force;
    bool m_simulate;
};
