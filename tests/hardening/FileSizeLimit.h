#ifndef TST_FILESIZELIMIT_H
#define TST_FILESIZELIMIT_H

// Lowers this process's file-size limit for the lifetime of the object, with SIGXFSZ ignored,
// so that a write past the limit fails with EFBIG instead of ending the process. Only the soft
// limit changes, so it can be raised back afterwards.

#include <csignal>
#include <sys/resource.h>

class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &previous);
        rlimit lowered = previous;
        lowered.rlim_cur = bytes;
        active = setrlimit(RLIMIT_FSIZE, &lowered) == 0;
    }

    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &previous);
        std::signal(SIGXFSZ, previousHandler);
    }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

    bool isActive() const { return active; }

private:
    rlimit previous{};
    void (*previousHandler)(int) = nullptr;
    bool active = false;
};

#endif
