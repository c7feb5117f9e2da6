#include "studio/summary_pane.h"

#include <QFormLayout>
#include <array>
#include <string>

#include "event/table_text.h"

namespace {

constexpr std::array<const char*, 6> kCaptions = {"Name",     "File",   "State",
                                                  "Division", "Events", "Length"};

std::string StateText(const Document& document) {
    const std::size_t remarks = document.Report().Lines().size();
    std::string text = document.IsModified()     ? "modified, not saved"
                       : document.File().empty() ? "new"
                                                 : "saved";
    if (remarks > 0) {
        text += "; opening it took " + std::to_string(remarks) +
                (remarks == 1 ? " correction" : " corrections");
    }
    return text;
}

std::array<std::string, kCaptions.size()> ValuesOf(const Document& document) {
    return {document.Name(),
            document.File().empty() ? "none" : document.File(),
            StateText(document),
            std::to_string(document.Events().Division()) + " ticks a quarter note",
            CountsText(document.Events()),
            LengthText(document.Events())};
}

}  // namespace

SummaryPane::SummaryPane(QWidget* parent) : QWidget(parent) {
    auto* form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const char* caption : kCaptions) {
        auto* value = new QLabel(this);
        value->setObjectName(caption);
        value->setAccessibleName(tr(caption));
        value->setTextFormat(Qt::PlainText);
        value->setWordWrap(true);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        form->addRow(tr(caption) + ":", value);
        values_.push_back(value);
    }
}

void SummaryPane::ShowDocument(const Document& document) {
    const auto values = ValuesOf(document);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values_[i]->setText(QString::fromStdString(values[i]));
    }
}
