#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>
#include <vector>

/// A process of the test's own, with all that it says in a file; ends with the object.
class Process {
public:
    explicit Process(std::vector<std::string> arguments, const std::string& output = "/dev/null") {
        std::vector<char*> pointers;
        for (std::string& argument : arguments) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_addopen(&actions, 1, output.c_str(),
                                           O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ::posix_spawn_file_actions_adddup2(&actions, 1, 2);
        EXPECT_EQ(::posix_spawn(&id_, pointers[0], &actions, nullptr, pointers.data(), environ), 0);
        ::posix_spawn_file_actions_destroy(&actions);
    }
    ~Process() { End(SIGTERM); }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    void Signal(int signal) const { ::kill(id_, signal); }
    void End(int signal) {
        if (id_ > 0) {
            Signal(signal);
            Await();
        }
    }
    /// The exit code; -1 when a signal ended it.
    int Await() {
        int status = 0;
        ::waitpid(id_, &status, 0);
        id_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t id_ = -1;
};
