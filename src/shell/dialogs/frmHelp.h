// SPDX-License-Identifier: GPL-3.0-or-later
//
// The user guide in a window of its own, beside the work: its contents on the left, the text on the right, a search.
// The guide is carried in the program, so it needs no file and no network.
#pragma once

#include <QTextBrowser>
#include <QWidget>

class QLineEdit;
class QListWidget;

/// A browser whose pictures never grow wider than the text.
class TGuideBrowser : public QTextBrowser {
    Q_OBJECT

public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override;
};

class THelpForm : public QWidget {
    Q_OBJECT

public:
    explicit THelpForm(QWidget* parent = nullptr);

    /// Goes to that heading; false, staying where it was, where the guide has none of that text.
    bool ShowTopic(const QString& heading);

private:
    void ListContents();
    void Find();

    // Owned by the window.
    QListWidget* lstContents;
    QLineEdit* edtFind;
    TGuideBrowser* txtGuide;
};
