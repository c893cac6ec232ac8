#include "controls/Handler.h"

#include "controls/Dialogs.h"
#include "runtime/RuntimeError.h"
#include "store/Connection.h"

#include <QApplication>

#include <algorithm>
#include <new>
#include <vector>

namespace {

/// How many handlers are running inside each other.
int depth = 0;

/// The numbers of the errors whose boxes are open.
std::vector<int> openBoxes;

/// Numbers of failures that are no RuntimeError.
constexpr int OutOfMemory = 7;
constexpr int InternalError = 51;

struct Failure
{
    int number;
    QString whatFailed;
    QString description;
};

class Level
{
public:
    Level() { ++depth; }
    ~Level() { --depth; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
};

/// A box of the general error path that stands open. Handlers that run meanwhile are outermost.
class OpenBox
{
public:
    explicit OpenBox(int number)
        : m_depth(std::exchange(depth, 0))
    {
        openBoxes.push_back(number);
    }
    ~OpenBox()
    {
        openBoxes.pop_back(); // boxes are modal: the last one opened closes first
        depth = m_depth;
    }
    OpenBox(const OpenBox&) = delete;
    OpenBox& operator=(const OpenBox&) = delete;

private:
    int m_depth;
};

std::optional<Failure> Attempt(const std::function<void()>& work)
{
    try {
        work();
    } catch (const RuntimeError& error) {
        return Failure{error.Number(), error.WhatFailed(), error.Description()};
    } catch (const std::bad_alloc& error) {
        return Failure{OutOfMemory, QStringLiteral("Não há memória suficiente para isso."),
                       QString::fromUtf8(error.what())};
    } catch (const std::exception& error) {
        return Failure{InternalError, QStringLiteral("Ocorreu um erro inesperado."),
                       QString::fromUtf8(error.what())};
    }
    return std::nullopt;
}

/// Tells the user of a failure unless a box already says the same.
/// @param shownLast  what an unattended handler showed last; nullptr for an attended one
void Tell(const Failure& failure, std::optional<int>* shownLast)
{
    if (std::ranges::find(openBoxes, failure.number) != openBoxes.end())
        return;
    if (shownLast) {
        if (*shownLast == failure.number)
            return;
        *shownLast = failure.number;
    }

    QString text = failure.whatFailed;
    if (!failure.description.isEmpty())
        text += QStringLiteral("\n\n") + failure.description;
    const OpenBox box(failure.number);
    // A box that cannot even be shown leaves nobody to tell it to.
    Attempt([&] {
        CurrentDialogs().Message(QApplication::activeWindow(), text, Icone::Critico,
                                 QStringLiteral("Melodario"));
    });
}

bool Run(const std::function<void()>& handler, std::optional<int>* shownLast)
{
    std::optional<Failure> failure;
    {
        const Level level;
        failure = Attempt(handler);
    }
    // Before a box stands open the changes so far are made durable, at whatever depth.
    std::optional<Failure> commitFailure;
    if (depth == 0 || failure)
        commitFailure = Attempt([] { Funcoes::Conexao.CommitBatch(); });
    if (failure)
        Tell(*failure, shownLast);
    if (commitFailure)
        Tell(*commitFailure, shownLast);
    return !failure && !commitFailure;
}

} // namespace

bool RunHandler(const std::function<void()>& handler)
{
    return Run(handler, nullptr);
}

bool Unattended::Run(const std::function<void()>& handler)
{
    const std::shared_ptr<std::optional<int>> shown = m_shown;
    const bool clean = ::Run(handler, shown.get());
    if (clean)
        shown->reset();
    return clean;
}

ModalScope::ModalScope()
    : m_depth(depth)
{
    Funcoes::Conexao.CommitBatch();
    depth = 0;
}

ModalScope::~ModalScope()
{
    depth = m_depth;
}
