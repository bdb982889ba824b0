#include "cli/doc_commands.h"

#include <bit>
#include <filesystem>
#include <memory>

#include "cli/stderr_prompt.h"
#include "cli/subcommand.h"
#include "settings/path_info.h"

namespace kovra::cli {

namespace {

Json Names(const std::vector<Name32>& names) {
    Json list = Json::array();
    for (const Name32& name : names) {
        list.push_back(NameOf(name));
    }
    return list;
}

Json Images(const std::vector<WirrelImageRecord>& images) {
    Json list = Json::array();
    for (const WirrelImageRecord& image : images) {
        list.push_back({{"path", image.path.Utf8()}, {"colorKey", image.colorKey}});
    }
    return list;
}

Json Textures(const Wirrel& w) {
    Json list = Json::array();
    for (const WirrelTexture& t : w.textures) {
        list.push_back({{"image", t.imageIndex}, {"x", t.x}, {"y", t.y}, {"w", t.width}, {"h", t.height}});
    }
    return list;
}

Json Skins(const Wirrel& w) {
    Json list = Json::array();
    for (const WirrelSkin& s : w.skins) {
        list.push_back({{"texture", s.texture},
                        {"offsetX", s.offsetX},
                        {"offsetY", s.offsetY},
                        {"scaleX", s.scaleX},
                        {"scaleY", s.scaleY},
                        {"angle", s.angle},
                        {"collision", s.collision}});
    }
    return list;
}

Json Aabbs(const Wirrel& w) {
    Json list = Json::array();
    for (const WirrelAabb& a : w.aabbs) {
        list.push_back({{"left", a.left},
                        {"top", a.top},
                        {"right", a.right},
                        {"bottom", a.bottom},
                        {"kind", a.kind},
                        {"next", a.next}});
    }
    return list;
}

Json Events(const Wirrel& w) {
    Json list = Json::array();
    for (const WirrelEvent& e : w.events) {
        Json vars = Json::array();
        for (int i = 0; i < 6; ++i) {
            // A variable typed float shows as one; any other shows its bits as a signed integer.
            if (e.VarType(i) == 1) {
                vars.push_back(std::bit_cast<float>(e.vars[i]));
            } else {
                vars.push_back(static_cast<std::int32_t>(e.vars[i]));
            }
        }
        list.push_back({{"name", e.name}, {"types", e.types}, {"vars", vars}});
    }
    return list;
}

Json Pins(const WirrelKey& key) {
    Json list = Json::array();
    for (const WirrelPin& p : key.pins) {
        list.push_back({{"angle", p.angle},
                        {"length", p.length},
                        {"scale", p.scale},
                        {"flags", p.flags},
                        {"skin", p.skin},
                        {"aabb", p.aabb},
                        {"parent", p.parent},
                        {"id", p.id}});
    }
    return list;
}

Json Anims(const std::vector<WirrelAnim>& anims) {
    Json list = Json::array();
    for (const WirrelAnim& anim : anims) {
        Json keys = Json::array();
        for (const WirrelKey& key : anim.keys) {
            keys.push_back({{"ticks", key.ticks},
                            {"eventFirst", key.eventFirst},
                            {"eventCount", key.eventCount},
                            {"pins", Pins(key)}});
        }
        list.push_back({{"name", NameOf(anim.name)}, {"speed", anim.speed}, {"keys", keys}});
    }
    return list;
}

}  // namespace

std::string AbsolutePath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

bool ReadDocument(const std::string& file, WirrelDoc& doc, std::vector<WirrelImageRecord>& images,
                  aurel::Prompt& prompt) {
    std::string why;
    if (!doc.Load(AbsolutePath(file), prompt, images, false, &why)) {
        Fail(why.empty() ? file + " is not a readable Kovra document" : "cannot open " + file + ": " + why);
        return false;
    }
    return true;
}

bool LoadDocument(const std::string& file, WirrelDoc& doc, std::vector<WirrelImageRecord>& images,
                  aurel::Prompt& prompt) {
    if (!ReadDocument(file, doc, images, prompt)) {
        return false;
    }
    for (const WirrelImageRecord& image : images) {
        doc.SetImage(
            -1, image.path.empty() ? nullptr : std::make_shared<WirrelTexImage>(image.path, image.colorKey));
    }
    return true;
}

bool SaveDocument(WirrelDoc& doc, const std::string& file, aurel::Prompt& prompt) {
    const std::string target = AbsolutePath(file);
    std::string why;
    if (!doc.Save(target, aurel::PathInfo(target).Extension().Utf8() == "ske", prompt, &why)) {
        Fail("cannot write " + file + (why.empty() ? "" : ": " + why));
        return false;
    }
    return true;
}

Json DumpJson(const WirrelDoc& doc, const std::vector<WirrelImageRecord>& images) {
    const Wirrel& w = doc.Wirrel();
    const Json background = {{"path", doc.background.path.Utf8()},
                             {"alpha", doc.background.alpha},
                             {"offsetX", doc.background.offsetX},
                             {"offsetY", doc.background.offsetY},
                             {"scale", doc.background.scale}};
    return {{"ticksPerSecond", w.ticksPerSecond},
            {"pixelsPerUnit", w.pixelsPerUnit},
            {"pinNames", Names(w.pinNames)},
            {"eventNames", Names(w.eventNames)},
            {"spareNames", Names(w.spareNames)},
            {"images", Images(images)},
            {"textures", Textures(w)},
            {"skins", Skins(w)},
            {"aabbs", Aabbs(w)},
            {"events", Events(w)},
            {"anims", Anims(w.anims)},
            {"snapFrames", doc.snapFrames},
            {"spareScale", doc.spareScale},
            {"spareFlag", doc.spareFlag},
            {"background", background},
            {"notes", doc.notes.Utf8()},
            {"notesImageBytes", doc.notesImageData.size()}};
}

Subcommand AddNew(CLI::App& tool) {
    CLI::App* app = tool.add_subcommand("new", "save a new document to OUT");
    auto out = std::make_shared<std::string>();
    app->add_option("OUT", *out, "the document to write")->required();
    return {app, [out] {
                StderrPrompt prompt;
                WirrelDoc doc;
                return SaveDocument(doc, *out, prompt) ? 0 : 1;
            }};
}

Subcommand AddDump(CLI::App& tool) {
    CLI::App* app = tool.add_subcommand("dump", "print everything FILE holds as one JSON object");
    auto file = std::make_shared<std::string>();
    app->add_option("FILE", *file, "the document to read")->required();
    return {app, [file] {
                StderrPrompt prompt;
                WirrelDoc doc;
                std::vector<WirrelImageRecord> images;
                if (!LoadDocument(*file, doc, images, prompt)) {
                    return 1;
                }
                PrintJson(DumpJson(doc, images));
                return 0;
            }};
}

Subcommand AddResave(CLI::App& tool) {
    CLI::App* app =
        tool.add_subcommand("resave", "load IN and save it to OUT, image paths made relative to OUT");
    auto files = std::make_shared<std::pair<std::string, std::string>>();
    app->add_option("IN", files->first, "the document to read")->required();
    app->add_option("OUT", files->second, "the document to write")->required();
    return {app, [files] {
                StderrPrompt prompt;
                WirrelDoc doc;
                std::vector<WirrelImageRecord> images;
                return LoadDocument(files->first, doc, images, prompt) &&
                               SaveDocument(doc, files->second, prompt)
                           ? 0
                           : 1;
            }};
}

Subcommand AddCheck(CLI::App& tool) {
    CLI::App* app = tool.add_subcommand("check", "exit 0 when FILE loads, 1 with the reason otherwise");
    auto file = std::make_shared<std::string>();
    app->add_option("FILE", *file, "the document to read")->required();
    return {app, [file] {
                StderrPrompt prompt;
                WirrelDoc doc;
                std::vector<WirrelImageRecord> images;
                return LoadDocument(*file, doc, images, prompt) ? 0 : 1;
            }};
}

}  // namespace kovra::cli
