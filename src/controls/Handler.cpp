#include "controls/Handler.h"

#include "controls/Dialogs.h"
#include "runtime/RuntimeError.h"
#include "store/Connection.h"

#include <QApplication>

#include <algorithm>
#include <new>
#include <optional>
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

    bool operator==(const Failure&) const = default;
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

/// @param shownLast  what an unattended handler showed last; nullptr for an attended one
/// @return whether nobody is told, because a box says so already or has said so before
bool IsSilent(const Failure& failure, const std::optional<Failure>* shownLast)
{
    return std::ranges::find(openBoxes, failure.number) != openBoxes.end() ||
           (shownLast && *shownLast == failure);
}

/// Tells the user of a failure unless it is silent. @param shownLast  as for IsSilent
void Tell(const Failure& failure, std::optional<Failure>* shownLast)
{
    if (IsSilent(failure, shownLast))
        return;
    if (shownLast)
        *shownLast = failure;

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

} // namespace

struct HandlerDetail::Shown
{
    std::optional<Failure> handler;
    std::optional<Failure> commit;
};

namespace {

bool Run(const std::function<void()>& handler, HandlerDetail::Shown* shown)
{
    auto* const shownHandler = shown ? &shown->handler : nullptr;
    auto* const shownCommit = shown ? &shown->commit : nullptr;
    std::optional<Failure> failure;
    {
        const Level level;
        failure = Attempt(handler);
    }
    // Before a box stands open the changes so far are made durable, at whatever depth. Without one
    // an outer handler's action goes on: it is not cut in two.
    std::optional<Failure> commitFailure;
    if (depth == 0 || (failure && !IsSilent(*failure, shownHandler)))
        commitFailure = Attempt([] { Funcoes::Conexao.CommitBatch(); });
    if (failure)
        Tell(*failure, shownHandler);
    if (commitFailure)
        Tell(*commitFailure, shownCommit);
    return !failure && !commitFailure;
}

} // namespace

bool RunHandler(const std::function<void()>& handler)
{
    return Run(handler, nullptr);
}

Unattended::Unattended()
    : m_shown(std::make_shared<HandlerDetail::Shown>())
{
}

bool Unattended::Run(const std::function<void()>& handler)
{
    const std::shared_ptr<HandlerDetail::Shown> shown = m_shown;
    const bool clean = ::Run(handler, shown.get());
    if (clean)
        *shown = {};
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
