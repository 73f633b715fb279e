// A program directory of its own for each test: the application path points
// to a scratch directory, the globals start as at program start, and message
// boxes, beeps and the end of the program are recorded.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "engine/mod_global.h"
#include "platform/msgbox.h"
#include "platform/runtime.h"
#include "platform/runtime_temp_dir.h"
#include "storage/mod_global_db.h"

class StorageTest : public ::testing::Test {
protected:
    void SetUp() override {
        modGlobal::ResetGlobals();
        platform::SetAppPath(app_.Path());
    }
    void TearDown() override {
        platform::SetAppPath(std::nullopt);
        platform::SetRegularInstallDirs(std::nullopt);
        modGlobal::SetChangeUserHook(nullptr);
        modGlobal::ResetGlobals();
    }

    // Copies a file the build delivers beside the program into `directory`.
    static void Deliver(const std::string& name, const std::string& directory) {
        std::filesystem::copy_file(std::string(DOVRIN_PROGRAM_DIR) + "/" + name, directory + "/" + name,
                                   std::filesystem::copy_options::overwrite_existing);
    }

    TempDir app_;
    platform::ScriptedResponder responder_;
};
