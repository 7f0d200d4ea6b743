#include "library_calls.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// Workers inherit the environment, and so they are told apart from those of other tests.
std::string mark()
{
    static const std::string text = "ORR_API_TEST=" + std::to_string(::getpid());
    return text;
}

class MarkedEnvironment : public testing::Environment
{
public:
    void SetUp() override { ::putenv(const_cast<char *>(marked.c_str())); }

private:
    const std::string marked = mark();
};

const auto *const environment = testing::AddGlobalTestEnvironment(new MarkedEnvironment);

bool isWorker(const fs::path &process)
{
    std::error_code error;
    if (fs::read_symlink(process / "exe", error).filename() != "orrlayout-worker")
        return false;
    std::ifstream file(process / "environ", std::ios::binary);
    std::stringstream text;
    text << '\0' << file.rdbuf();
    return text.str().find(std::string(1, '\0') + mark() + '\0') != std::string::npos;
}

} // namespace

Drawn drawn(const std::string &dot, const orrlayout_options *options)
{
    char *drawing = nullptr;
    char *message = nullptr;
    size_t size = 0;
    Drawn result;
    result.status = orrlayout_draw(dot.data(), dot.size(), options, &drawing, &size, &message);
    EXPECT_EQ(drawing != nullptr, result.status == ORRLAYOUT_OK);
    EXPECT_EQ(message != nullptr, result.status != ORRLAYOUT_OK);
    if (drawing) {
        EXPECT_EQ(drawing[size], '\0');
        result.drawing.assign(drawing, size);
    }
    if (message)
        result.message = message;
    orrlayout_free(drawing);
    orrlayout_free(message);
    return result;
}

Drawn drawn(const std::string &dot, const char *engine, const char *format)
{
    orrlayout_options options = ORRLAYOUT_OPTIONS;
    options.engine = engine;
    options.format = format;
    return drawn(dot, &options);
}

std::vector<pid_t> workers()
{
    std::vector<pid_t> found;
    for (const fs::directory_entry &entry : fs::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (name.find_first_not_of("0123456789") == std::string::npos && isWorker(entry.path()))
            found.push_back(std::stoi(name));
    }
    return found;
}

std::vector<pid_t> workersOnce(size_t count)
{
    std::vector<pid_t> found = workers();
    for (int tries = 0; found.size() != count && tries < 200; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        found = workers();
    }
    return found;
}

void killWorkers()
{
    for (const pid_t worker : workers())
        ::kill(worker, SIGKILL);
    ASSERT_EQ(workersOnce(0).size(), 0U);
}

int inChild(const std::function<int()> &function)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(60);
        std::_Exit(function());
    }
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
