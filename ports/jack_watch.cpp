#include "ports/jack_watch.h"

#include <jack/jack.h>

namespace {

constexpr char kClientName[] = "Orbix watch";

void Discard(const char* /*words*/) {}

}  // namespace

std::unique_ptr<JackWatch> JackWatch::Open(CString& failure) {
    // The library would write its own words to stderr.
    jack_set_error_function(&Discard);
    jack_set_info_function(&Discard);
    jack_status_t status{};
    jack_client_t* const client = jack_client_open(kClientName, JackNoStartServer, &status);
    if (client == nullptr) {
        failure = "no JACK server is running";
        return nullptr;
    }
    std::unique_ptr<JackWatch> watch(new JackWatch);
    watch->client_ = client;
    jack_on_shutdown(
        client, [](void* self) { static_cast<JackWatch*>(self)->alive_ = false; }, watch.get());
    return watch;
}

JackWatch::~JackWatch() {
    jack_client_close(static_cast<jack_client_t*>(client_));
}
