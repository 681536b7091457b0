#pragma once

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <string>
#include <vector>

#include "tests/host/temporary_file.h"

namespace quillo::test {

// The program as a process of its own, which can be stopped, killed and starved.
class Child {
public:
    using Clock = std::chrono::steady_clock;

    // out: a file for standard output; empty: a pipe that nobody reads. mostBytes: how long a file may grow; 0: any.
    explicit Child(const std::vector<std::string>& arguments, const std::string& out = "", rlim_t mostBytes = 0) {
        int ends[2] = {-1, -1};
        if (out.empty() && pipe2(ends, O_CLOEXEC) != 0) return;
        if (out.empty()) fcntl(ends[1], F_SETPIPE_SZ, 4096);
        pipe_ = ends[0];
        id_ = fork();
        if (id_ == 0) become(arguments, out, ends[1], mostBytes);
        if (ends[1] >= 0) close(ends[1]);
    }
    ~Child() {
        if (id_ > 0 && !ended_) end(SIGKILL, std::chrono::seconds(10));
        closePipe();
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    void closePipe() {
        if (pipe_ >= 0) close(pipe_);
        pipe_ = -1;
    }
    // Whether something comes out of its standard output in time.
    bool speaks(std::chrono::milliseconds most) const {
        pollfd handle{pipe_, POLLIN, 0};
        return poll(&handle, 1, static_cast<int>(most.count())) > 0;
    }
    bool waitFor(std::chrono::milliseconds most) {
        const auto since = Clock::now();
        while (!ended_ && Clock::now() - since < most) {
            ended_ = waitpid(id_, &status_, WNOHANG) == id_;
            if (!ended_) usleep(1000);
        }
        return ended_;
    }
    // Sends a signal; how long it took to end.
    std::chrono::milliseconds end(int signal, std::chrono::milliseconds most) {
        const auto since = Clock::now();
        if (!ended_) kill(id_, signal);
        waitFor(most);
        return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - since);
    }
    int exitStatus() const { return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1; }
    int endingSignal() const { return WIFSIGNALED(status_) ? WTERMSIG(status_) : 0; }
    std::string complaints() const {
        std::ifstream file(errors_.path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    [[noreturn]] void become(const std::vector<std::string>& arguments, const std::string& out, int pipeEnd,
                             rlim_t mostBytes) const {
        dup2(pipeEnd >= 0 ? pipeEnd : open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), STDOUT_FILENO);
        dup2(open(errors_.path().c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), STDERR_FILENO);
        const rlimit files{mostBytes, mostBytes}, cores{0, 0};
        if (mostBytes > 0) setrlimit(RLIMIT_FSIZE, &files);
        setrlimit(RLIMIT_CORE, &cores);
        std::vector<char*> words{const_cast<char*>(QUILLO_PROGRAM)};
        for (const std::string& word : arguments) words.push_back(const_cast<char*>(word.c_str()));
        words.push_back(nullptr);
        execv(words[0], words.data());
        _exit(127);
    }

    TemporaryFile errors_{".err"};
    pid_t id_ = -1;
    int pipe_ = -1, status_ = 0;
    bool ended_ = false;
};

}  // namespace quillo::test
