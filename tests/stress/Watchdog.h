#ifndef COMMANDSYSTEM_TESTS_WATCHDOG_H
#define COMMANDSYSTEM_TESTS_WATCHDOG_H

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>

// Ends the process with a failure when a test function runs longer than its limit, so that a
// hang in a thread bridge shows up as a failed test instead of a stuck run. Standard-library
// primitives only: they are visible to ThreadSanitizer.
class Watchdog
{
public:
    Watchdog() : thread([this] { watch(); }) {}

    ~Watchdog()
    {
        {
            std::lock_guard<std::mutex> lock(mutex);
            stopping = true;
        }
        changed.notify_one();
        thread.join();
    }

    void arm(const std::string& what, std::chrono::seconds limit)
    {
        std::lock_guard<std::mutex> lock(mutex);
        armedFor = what;
        deadline = std::chrono::steady_clock::now() + limit;
        armed = true;
        changed.notify_one();
    }

    void disarm()
    {
        std::lock_guard<std::mutex> lock(mutex);
        armed = false;
        changed.notify_one();
    }

private:
    void watch()
    {
        std::unique_lock<std::mutex> lock(mutex);
        while (!stopping) {
            if (!armed) {
                changed.wait(lock);
                continue;
            }
            if (changed.wait_until(lock, deadline) == std::cv_status::timeout && armed
                && std::chrono::steady_clock::now() >= deadline) {
                std::fprintf(stderr, "FAIL! watchdog: %s did not finish in time (hang)\n",
                             armedFor.c_str());
                std::fflush(stderr);
                std::_Exit(EXIT_FAILURE);
            }
        }
    }

    std::mutex mutex;
    std::condition_variable changed;
    std::string armedFor;
    std::chrono::steady_clock::time_point deadline;
    bool armed = false;
    bool stopping = false;
    std::thread thread;
};

#endif
