// Another process at the device: side send FOLDER LETTER COUNT | side hold FOLDER
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "tests/link/contention.h"
#include "tests/link/test_clock.h"

int main(int, char** arguments) {
    const FastClock clock;
    const std::string task = arguments[1];
    ContestedDevice device(arguments[2]);
    LocalLink link;
    link.Open("contested", device);
    if (task == "send") {
        SendRepeatedly(link, *arguments[3], std::atoi(arguments[4]));
        return 0;
    }
    SendRepeatedly(link, 'h', 1);
    std::this_thread::sleep_for(std::chrono::minutes(1));
    return 1;
}
