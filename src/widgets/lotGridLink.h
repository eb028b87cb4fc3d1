// SPDX-License-Identifier: GPL-3.0-or-later
//
// What ties a data source to the grids that show it: edits in, with all that follows them, and news out.
#pragma once

#include "common/lotDataSource.h"
#include "widgets/lotHookGuard.h"

#include <QObject>
#include <functional>

class TGridLink : public QObject {
    Q_OBJECT

public:
    /// Takes over the source's OnDataChanged and OnGone. The guard outlives the link. The source needn't: a screen that
    /// holds it as a member loses it before the toolkit deletes the grid. From then on there are no records.
    TGridLink(TlotCustomDataSource& source, THookGuard& guard, QObject* parent = nullptr);
    ~TGridLink() override;

    /// nullptr once the source is gone; never within a Write.
    [[nodiscard]] TlotCustomDataSource* Source() const noexcept { return FSource; }
    /// What `work` gets from the source, or `otherwise` where it throws or there is none.
    template <typename TResult, typename TWork> TResult Ask(const TWork& work, TResult otherwise) const {
        if (FSource != nullptr) {
            FGuard.Read([&] { otherwise = work(*FSource); });
        }
        return otherwise;
    }
    [[nodiscard]] THookGuard& Guard() const noexcept { return FGuard; }
    /// Runs `work`, whose edits are one batch, then what follows: OnChange, Settle, the view, and the box if something
    /// threw. The list's own news wait until then. What follows may delete the grid later, but not at once: the
    /// toolkit is still within its editor.
    void Write(const std::function<void()>& work);
    /// Adds a record within a Write and returns its index. The grid shows it without reading the list afresh, which
    /// would close the editor of the row for new records.
    int Append();
    /// Has all grids read the list afresh; open editors close unposted.
    void Reload();
    /// Has all grids show the values afresh; the list is as it was.
    void Refresh();

signals:
    void ValuesChanged();
    void ListChanged();

private:
    void Settle();
    void SourceGone();

    TlotCustomDataSource* FSource;
    THookGuard& FGuard;
    bool FWriting = false;
    bool FAppending = false;
    bool FReloadDue = false;
};
