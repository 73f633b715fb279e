// Any bytes as dovrin.ini: both readers must take them without a crash, and
// what a load gives must come back whole through a save and a second load.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "platform/runtime_temp_dir.h"
#include "storage/settings_file.h"
#include "support/recording_main_form.h"

namespace {

struct Options {
    std::int32_t lastUserId;
    std::string dbPath;
    bool sound, animals, music;
    std::int32_t animSpeed;
    bool operator==(const Options& o) const {
        return lastUserId == o.lastUserId && dbPath == o.dbPath && sound == o.sound && animals == o.animals &&
               music == o.music && animSpeed == o.animSpeed;
    }
};

Options Current(const RecordingMainForm& form) {
    using namespace modGlobal;
    return {glLastUserId, gsDbPath, gbSoundOn, gbAnimalsOn, form.music, glAnimSpeed};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static TempDir dir;
    platform::SetAppPath(dir.Path());
    platform::SetRegularInstallDirs({{dir.Path(), dir.Path()}});
    const std::string file = dir.File("dovrin.ini");
    WriteBytes(file, std::string(reinterpret_cast<const char*>(data), size));

    platform::ScriptedResponder responder;
    bool noUser = false;
    modGlobal::ReadCopyLinkOption(noUser);

    modGlobal::ResetGlobals();
    RecordingMainForm form;
    storage::Ini_Load(file, form);
    const Options loaded = Current(form);

    modGlobal::glUserId = modGlobal::glLastUserId;
    storage::Ini_Save(form);
    modGlobal::ResetGlobals();
    RecordingMainForm reloadedForm;
    const std::size_t boxesBefore = responder.Boxes().size();
    storage::Ini_Load(file, reloadedForm);
    if (!(Current(reloadedForm) == loaded) || responder.Boxes().size() != boxesBefore) std::abort();
    return 0;
}
