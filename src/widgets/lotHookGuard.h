// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where a widget calls what its owner has hung on it: data sources and hooks, which may throw. The user is told once
// for each thing done, after all that has to follow it has happened; no exception passes through the toolkit. What is
// run may delete the widget, and the guard with it.
#pragma once

#include <QObject>
#include <exception>
#include <functional>

class THookGuard : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Runs `work`; false if it threw. A Run within a Run is a step of it: the others go on, and the first failure of
    /// them all is told when the outermost is over.
    bool Run(const std::function<void()>& work);
    /// As Run, for where no box may open, as while the focus moves: told once the program is back in its message loop.
    bool RunLater(const std::function<void()>& work);
    /// As RunLater, for what is called over and over, as by painting: once such a failure, or any other, has been told,
    /// the next is not, until Renew.
    template <typename TWork> bool Read(const TWork& work) {
        try {
            work();
            return true;
        } catch (...) {
            NoteRead(std::current_exception());
            return false;
        }
    }
    /// Something has changed, so that another failure of Read is worth telling.
    void Renew() noexcept { FReadTold = false; }

private:
    enum class TTell : bool { Now, Later };

    bool RunStep(const std::function<void()>& work, TTell when);
    void Note(std::exception_ptr failure);
    void NoteRead(std::exception_ptr failure);
    void TellLater();
    void Tell();

    int FDepth = 0;
    bool FReadTold = false;
    std::exception_ptr FFailure; ///< Not told yet.
};
