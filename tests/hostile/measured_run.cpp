// Runs a program without its output, and prints its exit status and cost:
//     measured_run PROGRAM [ARGUMENT]...
// A child's peak memory includes that of its parent, so this process is kept small.

#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void run(char *command[])
{
    const int nothing = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ::dup2(nothing, STDOUT_FILENO);
    ::execv(command[0], command);
    std::perror(command[0]);
    ::_exit(127);
}

double seconds(const timeval &time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 2) {
        std::fputs("Usage: measured_run PROGRAM [ARGUMENT]...\n", stderr);
        return 2;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        run(argv + 1);
    }
    int status = 0;
    rusage usage = {};
    if (child < 0 || ::wait4(child, &status, 0, &usage) != child) {
        std::perror("measured_run");
        return 3;
    }
    if (!WIFEXITED(status)) {
        std::fprintf(stderr, "signal %d\n", WTERMSIG(status));
        return 4;
    }
    std::printf("exit %d\ncpu %f\nmemory %ld\n", WEXITSTATUS(status),
                seconds(usage.ru_utime) + seconds(usage.ru_stime), usage.ru_maxrss);
    return 0;
}
