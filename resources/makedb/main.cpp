// Builds the delivered game database: dovrin-makedb <file>. An existing file
// is replaced whole, never left half made.
#include <cstdio>
#include <stdexcept>
#include <string>

#include "game_schema.h"
#include "storage/data_procedure.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <database file>\n", argv[0]);
        return 2;
    }
    const std::string target = argv[1];
    const std::string scratch = target + ".new";
    // The file carries the password of the program's connect string.
    const std::string connect = storage::kDbConnect;
    const std::string key = connect.substr(connect.find("pwd=") + 4);
    try {
        std::remove(scratch.c_str());
        makedb::CreateGameDatabase(scratch, key);
        if (std::rename(scratch.c_str(), target.c_str()) != 0) throw std::runtime_error("cannot replace " + target);
    } catch (const std::exception& error) {
        std::remove(scratch.c_str());
        std::fprintf(stderr, "dovrin-makedb: %s\n", error.what());
        return 1;
    }
    return 0;
}
