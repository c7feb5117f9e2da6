#pragma once

#include <QLabel>
#include <QWidget>
#include <vector>

#include "studio/document.h"

/// What a pattern is, at a glance: name, file, counts, length. The values can be selected and
/// copied.
class SummaryPane : public QWidget {
public:
    explicit SummaryPane(QWidget* parent = nullptr);

    void ShowDocument(const Document& document);

private:
    std::vector<QLabel*> values_;  // owned by the pane
};
