#include "cli/doc_commands.h"

#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "cli/json_writer.h"
#include "cli/stderr_prompt.h"
#include "settings/path_info.h"

namespace kovra::cli {

namespace {

bool SaveDocument(WirrelDoc& doc, const std::string& file, aurel::Prompt& prompt) {
    const std::string target = AbsolutePath(file);
    if (!doc.Save(target, aurel::PathInfo(target).Extension().Utf8() == "ske", prompt)) {
        std::fprintf(stderr, "kovra-cli: cannot write %s\n", file.c_str());
        return false;
    }
    return true;
}

void DumpNames(JsonWriter& json, const char* key, const std::vector<Name32>& names) {
    json.Key(key).BeginArray();
    for (const Name32& name : names) {
        json.String(NameOf(name));
    }
    json.EndArray();
}

void DumpTables(JsonWriter& json, const Wirrel& w, const std::vector<WirrelImageRecord>& images) {
    json.Key("images").BeginArray();
    for (const WirrelImageRecord& image : images) {
        json.BeginObject()
            .Key("path")
            .String(image.path.Utf8())
            .Key("colorKey")
            .Int(image.colorKey)
            .EndObject();
    }
    json.EndArray().Key("textures").BeginArray();
    for (const WirrelTexture& t : w.textures) {
        json.BeginObject().Key("image").Int(t.imageIndex).Key("x").Int(t.x).Key("y").Int(t.y);
        json.Key("w").Int(t.width).Key("h").Int(t.height).EndObject();
    }
    json.EndArray().Key("skins").BeginArray();
    for (const WirrelSkin& s : w.skins) {
        json.BeginObject().Key("texture").Int(s.texture).Key("offsetX").Float(s.offsetX);
        json.Key("offsetY").Float(s.offsetY).Key("scaleX").Float(s.scaleX).Key("scaleY").Float(s.scaleY);
        json.Key("angle").Float(s.angle).Key("collision").Int(s.collision).EndObject();
    }
    json.EndArray().Key("aabbs").BeginArray();
    for (const WirrelAabb& a : w.aabbs) {
        json.BeginObject().Key("left").Float(a.left).Key("top").Float(a.top).Key("right").Float(a.right);
        json.Key("bottom").Float(a.bottom).Key("kind").Int(a.kind).Key("next").Int(a.next).EndObject();
    }
    json.EndArray().Key("events").BeginArray();
    for (const WirrelEvent& e : w.events) {
        json.BeginObject().Key("name").Int(e.name).Key("types").Int(e.types).Key("vars").BeginArray();
        for (int i = 0; i < 6; ++i) {
            // A variable typed float shows as one; any other shows its bits as a signed integer.
            if (e.VarType(i) == 1) {
                json.Float(std::bit_cast<float>(e.vars[i]));
            } else {
                json.Int(static_cast<std::int32_t>(e.vars[i]));
            }
        }
        json.EndArray().EndObject();
    }
    json.EndArray();
}

void DumpAnims(JsonWriter& json, const std::vector<WirrelAnim>& anims) {
    json.Key("anims").BeginArray();
    for (const WirrelAnim& anim : anims) {
        json.BeginObject().Key("name").String(NameOf(anim.name)).Key("speed").Float(anim.speed);
        json.Key("keys").BeginArray();
        for (const WirrelKey& key : anim.keys) {
            json.BeginObject().Key("ticks").Int(key.ticks).Key("eventFirst").Int(key.eventFirst);
            json.Key("eventCount").Int(key.eventCount).Key("pins").BeginArray();
            for (const WirrelPin& p : key.pins) {
                json.BeginObject().Key("angle").Float(p.angle).Key("length").Float(p.length);
                json.Key("scale").Float(p.scale).Key("flags").Int(p.flags).Key("skin").Int(p.skin);
                json.Key("aabb").Int(p.aabb).Key("parent").Int(p.parent).Key("id").Int(p.id).EndObject();
            }
            json.EndArray().EndObject();
        }
        json.EndArray().EndObject();
    }
    json.EndArray();
}

}  // namespace

std::string AbsolutePath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

bool LoadDocument(const std::string& file, WirrelDoc& doc, std::vector<WirrelImageRecord>& images,
                  aurel::Prompt& prompt) {
    const std::string path = AbsolutePath(file);
    if (std::FILE* probe = std::fopen(path.c_str(), "rb")) {
        std::fclose(probe);
    } else {
        std::fprintf(stderr, "kovra-cli: cannot open %s: %s\n", file.c_str(), std::strerror(errno));
        return false;
    }
    if (!doc.Load(path, prompt, images, false)) {
        std::fprintf(stderr, "kovra-cli: %s is not a readable Kovra document\n", file.c_str());
        return false;
    }
    for (const WirrelImageRecord& image : images) {
        doc.SetImage(
            -1, image.path.empty() ? nullptr : std::make_shared<WirrelTexImage>(image.path, image.colorKey));
    }
    return true;
}

std::string DumpJson(const WirrelDoc& doc, const std::vector<WirrelImageRecord>& images) {
    const Wirrel& w = doc.Wirrel();
    JsonWriter json;
    json.BeginObject().Key("ticksPerSecond").Int(w.ticksPerSecond).Key("pixelsPerUnit").Int(w.pixelsPerUnit);
    DumpNames(json, "pinNames", w.pinNames);
    DumpNames(json, "eventNames", w.eventNames);
    DumpNames(json, "spareNames", w.spareNames);
    DumpTables(json, w, images);
    DumpAnims(json, w.anims);
    json.Key("snapFrames").Int(doc.snapFrames).Key("spareScale").Float(doc.spareScale);
    json.Key("spareFlag").Bool(doc.spareFlag).Key("background").BeginObject();
    json.Key("path").String(doc.background.path.Utf8()).Key("alpha").Int(doc.background.alpha);
    json.Key("offsetX").Float(doc.background.offsetX).Key("offsetY").Float(doc.background.offsetY);
    json.Key("scale").Float(doc.background.scale).EndObject();
    json.Key("notes").String(doc.notes.Utf8());
    json.Key("notesImageBytes").Int(static_cast<std::int64_t>(doc.notesImageData.size())).EndObject();
    return json.Text();
}

int RunNew(const std::vector<std::string>& args) {
    StderrPrompt prompt;
    WirrelDoc doc;
    return SaveDocument(doc, args[0], prompt) ? 0 : 1;
}

int RunDump(const std::vector<std::string>& args) {
    StderrPrompt prompt;
    WirrelDoc doc;
    std::vector<WirrelImageRecord> images;
    if (!LoadDocument(args[0], doc, images, prompt)) {
        return 1;
    }
    const std::string json = DumpJson(doc, images) + "\n";
    std::fwrite(json.data(), 1, json.size(), stdout);
    return 0;
}

int RunResave(const std::vector<std::string>& args) {
    StderrPrompt prompt;
    WirrelDoc doc;
    std::vector<WirrelImageRecord> images;
    return LoadDocument(args[0], doc, images, prompt) && SaveDocument(doc, args[1], prompt) ? 0 : 1;
}

int RunCheck(const std::vector<std::string>& args) {
    StderrPrompt prompt;
    WirrelDoc doc;
    std::vector<WirrelImageRecord> images;
    return LoadDocument(args[0], doc, images, prompt) ? 0 : 1;
}

}  // namespace kovra::cli
