// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotGridLink.h"

#include <QScopeGuard>
#include <utility>

TGridLink::TGridLink(TlotCustomDataSource& source, THookGuard& guard, QObject* parent)
    : QObject(parent), FSource(&source), FGuard(guard) {
    source.OnDataChanged = [this] { Reload(); };
    source.OnGone = [this] { SourceGone(); };
}

TGridLink::~TGridLink() {
    if (FSource != nullptr) {
        FSource->OnDataChanged = {};
        FSource->OnGone = {};
    }
}

void TGridLink::SourceGone() {
    FSource = nullptr;
    FGuard.RunLater([this] { emit ListChanged(); });
}

void TGridLink::Settle() {
    FGuard.Run([this] {
        if (FSource != nullptr) {
            FSource->Settle();
        }
    });
}

void TGridLink::Write(const std::function<void()>& work) {
    if (FSource == nullptr) {
        return;
    }
    if (FWriting) {
        FGuard.Run(work);
        return;
    }
    FGuard.Renew();
    FGuard.Run([&] {
        FWriting = true;
        FSource->BeginBatch();
        FGuard.Run(work);
        FGuard.Run([this] { FSource->EndBatch(); });
        Settle();
        FWriting = false;
        if (std::exchange(FReloadDue, false)) {
            emit ListChanged();
        } else {
            emit ValuesChanged();
        }
    });
}

int TGridLink::Append() {
    FAppending = true;
    const auto done = qScopeGuard([this] { FAppending = false; });
    return FSource->AppendRecord();
}

void TGridLink::Reload() {
    if (FAppending) {
        return;
    }
    if (FWriting) {
        FReloadDue = true;
        return;
    }
    FGuard.Renew();
    FGuard.Run([this] {
        Settle();
        emit ListChanged();
    });
}

void TGridLink::Refresh() {
    if (FWriting) {
        return; // Its end does so.
    }
    FGuard.Renew();
    FGuard.Run([this] {
        Settle();
        emit ValuesChanged();
    });
}
