#pragma once

#include "CatalogueWatch.h"
#include "Chance.h"
#include "Hands.h"
#include "Journal.h"
#include "main/frmPrincipal.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"

#include <QPointer>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <utility>

class frmVisualizar;

/// The main form on a catalogue of its own.
class FormOnCatalogue final : public frmPrincipal
{
public:
    explicit FormOnCatalogue(const TestCatalogue& catalogue)
        : m_catalogue(catalogue)
    {
    }

protected:
    void Conecta_Banco() override
    {
        Funcoes::Conexao.Open(m_catalogue.ConnectionString());
        Funcoes::Conexao.CursorLocation = Connection::UseClient;
    }

private:
    const TestCatalogue& m_catalogue;
};

/// Somebody at the program: one action after the other by chance, and after each a look at what
/// must hold.
class Musician
{
public:
    /// Fills a catalogue and opens the program.
    explicit Musician(std::uint64_t seed);
    ~Musician();
    Musician(const Musician&) = delete;
    Musician& operator=(const Musician&) = delete;

    /// @param number  counts from 1
    void Act(int number);

    /// Closes every viewer, finishes the setlist and goes back to an empty search: what the program
    /// holds now it holds for good.
    void Rest();

    // What actions are made of.

    /// @return a control of the main form that is to be seen and can be used; nullptr for none
    template <typename Control = QWidget>
    Control* Seen(const char* name) const
    {
        auto* control = form ? form->findChild<Control*>(QString::fromLatin1(name)) : nullptr;
        return Hands::Reachable(control) ? control : nullptr;
    }
    /// Clicks on a control of the main form. @return false when it is not to be seen
    bool Click(const char* name) const;

    /// Goes to a panel by menu or toolbar, unless it is shown.
    /// @param entry  "Pesquisa", "Cadastro" or "Lista". @return false when that was refused
    bool GoTo(const char* entry);
    bool GoToSearch() { return GoTo("Pesquisa"); }
    bool GoToEntry() { return GoTo("Cadastro"); }
    bool GoToSetlists() { return GoTo("Lista"); }
    /// Clicks on a menu entry or on its twin in the toolbar.
    void Choose(const char* entry);
    /// Lets the delay of a search go by. @return whether a search was due
    bool AwaitSearch() const;
    /// Lets seconds go by in every viewer.
    void LetTimePass(int seconds);

    QList<frmVisualizar*> Viewers() const;
    /// @return one of the open viewers, brought to the front; nullptr for none
    frmVisualizar* SomeViewer();
    /// @return whether one more is wanted
    bool RoomForViewers() const;

    QString Tag(const char* control) const;
    QString NewTitle();
    QString NewText();
    QString Word();
    /// @return a piece of a title, reference or text that is stored
    QString StoredPiece();
    /// @return whether so many songs are stored that none should be added
    bool Full() const;

    /// What a box said since the action began.
    bool Heard(const QString& part) const;
    /// @return whether the action may meet a statement that fails: without a connection, or where
    ///         an apostrophe is spliced as it is
    bool MayFail() const;
    /// Expects a song to lie in the catalogue exactly so when the action is over.
    /// @param song  with a null key: any
    void Expect(qint64 id, const StoredSong& song) { m_expected = {id, song}; }
    void Demand(bool holds, const QString& finding) const
    {
        if (!holds)
            journal.Fail(finding);
    }

    Chance chance;
    Journal journal;
    TestCatalogue catalogue;
    QTemporaryDir files; ///< exchange files
    std::unique_ptr<FormOnCatalogue> form;
    std::unique_ptr<CatalogueWatch> watch;
    Permitted permitted;
    QStringList heard;
    bool orphaned = false;        ///< viewers live on without a connection
    bool quoteTyped = false;      ///< an apostrophe meets a statement that cannot have one
    std::int64_t secondsUsed = 0; ///< as the musician's clock goes

private:
    void OpenProgram();
    void FillCatalogue() const;
    void LookAround();
    void CompareSaved();

    std::uint64_t m_seed;
    std::optional<std::pair<qint64, StoredSong>> m_expected;
    std::unique_ptr<QObject> m_boxes;
};
