// SPDX-License-Identifier: GPL-3.0-or-later
// make_day_database FILE SCRIPT.sql...: creates a day database by running the scripts in order. An existing
// FILE is only replaced if all statements succeed.

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace {

struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
};

/// Appends the contents of a file, which must not be empty.
bool Append(const char* path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    const auto before = text.size();
    text.append(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    return file.good() || (file.eof() && text.size() > before);
}

/// Runs the script on a new file; returns whether every statement succeeded.
bool Create(const std::string& path, const std::string& script) {
    sqlite3* handle = nullptr;
    const int opened =
        sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, Closer> database(handle);
    if (opened != SQLITE_OK || sqlite3_exec(handle, script.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "make_day_database: %s: %s\n", path.c_str(), sqlite3_errmsg(handle));
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fputs("usage: make_day_database FILE SCRIPT.sql...\n", stderr);
        return 2;
    }
    std::string script;
    for (int i = 2; i < argc; ++i) {
        if (!Append(argv[i], script)) {
            std::fprintf(stderr, "make_day_database: cannot read %s\n", argv[i]);
            return 1;
        }
    }
    const std::string unfinished = std::string(argv[1]) + ".new";
    std::error_code error;
    std::filesystem::remove(unfinished, error);
    const bool isCreated = !error && Create(unfinished, script);
    if (isCreated) {
        std::filesystem::rename(unfinished, argv[1], error);
    }
    if (error) {
        std::fprintf(stderr, "make_day_database: %s: %s\n", argv[1], error.message().c_str());
    }
    if (!isCreated || error) {
        std::error_code ignored;  // the original error was already reported
        std::filesystem::remove(unfinished, ignored);
        return 1;
    }
    return 0;
}
