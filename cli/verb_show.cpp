#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/document_input.h"
#include "cli/options.h"
#include "cli/output.h"
#include "cli/verbs.h"
#include "event/table_text.h"

namespace {

using Json = nlohmann::ordered_json;

struct ShowOptions {
    InputOptions input;
    RemarkOptions remarks;
    bool json = false;
};

std::string TableText(const C3DEventData& store) {
    std::string text;
    for (const std::string& line : TableLines(store)) {
        text += line + "\n";
    }
    return text;
}

Json TimeSigsJson(const C3DEventData& store) {
    std::vector<t_tSigMapRec> records;
    store.CopyTimeSigMap(records);
    Json list = Json::array();
    for (const t_tSigMapRec& record : records) {
        list.push_back({{"measure", record.measure},
                        {"beat", record.beat},
                        {"tick", record.tick},
                        {"total_tick", record.totalTick},
                        {"numerator", record.numerator},
                        {"denominator", record.denominator}});
    }
    return list;
}

Json EventJson(const _tagEvent3D& event, const t_MBT& place) {
    const bool isTimeSig = event.type == kEventTimeSig;
    Json object = {{"type", isTimeSig ? "time_signature" : "position"},
                   {"id", event.id},
                   {"total_tick", event.tick},
                   {"measure", place.measure},
                   {"beat", place.beat},
                   {"tick", place.tick}};
    if (isTimeSig) {
        object["numerator"] = event.numerator;
        object["denominator"] = event.denominator;
    } else {
        object["distance"] = event.distance;
        object["azimuth"] = event.azimuth;
        object["elevation"] = event.elevation;
    }
    return object;
}

std::string JsonText(const Document& document) {
    const C3DEventData& store = document.store;
    Json events = Json::array();
    for (int i = 0; i < store.CountEvents(-1); ++i) {
        const _tagEvent3D& event = store.EventAt(i);
        events.push_back(EventJson(event, store.TickToMBT(event.tick)));
    }
    const Json object = {{"name", document.name},
                         {"division", store.Division()},
                         {"time_signatures", TimeSigsJson(store)},
                         {"events", std::move(events)},
                         {"report", document.report.Lines()}};
    // A name may hold bytes that are no UTF-8; they must not cost the whole answer.
    return object.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

ExitCode Show(const ShowOptions& options) {
    const Document document = LoadDocument(options.input);
    WriteResult(options.json ? JsonText(document) : TableText(document.store));
    return ReportRemarks(document.label, document.report, options.remarks);
}

}  // namespace

void AddShowVerb(CLI::App& program, Job& job) {
    CLI::App& verb = *program.add_subcommand("show", "Print the event table");
    const auto options = std::make_shared<ShowOptions>();
    AddInputOptions(verb, options->input);
    AddRemarkOptions(verb, options->remarks);
    verb.add_flag("--json", options->json, "Print one JSON object instead, remarks included");
    verb.callback([&job, options] { job = [options] { return Show(*options); }; });
}
