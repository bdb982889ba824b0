// The render subcommand of kovra-cli: one frame of an animation painted as the editor's workspace shows
// it in animate mode with nothing selected, or only its skins on a clear background (a sprite of that
// frame for a game's build), written to a PNG file.

#include <memory>

#include "cli/doc_commands.h"
#include "cli/image_options.h"
#include "cli/render_options.h"
#include "cli/stderr_prompt.h"
#include "cli/subcommand.h"
#include "settings/folders.h"
#include "settings/path_info.h"
#include "settings/theme.h"
#include "textures/document_images.h"
#include "views/workspace/workspace_paint.h"

namespace kovra::cli {

namespace {

struct RenderArguments {
    std::string file;
    std::string anim;
    std::string framePos;
    std::string out;
    std::string size = "512x512";
    std::string zoom = "1";
    std::string center = "0,0";
    std::string theme = "Paleform";
    bool skinsOnly = false;
};

// The background picture, which the document names relative to itself; a picture that can't be read
// leaves the background empty, as the editor does.
void LoadBackground(WirrelDoc& doc, const std::string& file) {
    aurel::DualString path = doc.background.path;
    if (path.empty()) {
        return;
    }
    if (aurel::IsRelative(path)) {
        path = aurel::Normalise(aurel::PathInfo(aurel::DualString(AbsolutePath(file))).Folder(true).Utf8() +
                                path.Utf8());
    }
    WirrelTexImage picture;
    if (picture.Load(path) == 0) {
        doc.background.bitmap = std::move(picture.surface);
    }
}

// The workspace's colours and sizes from the theme file of that name beside the program.
bool LoadWorkspaceTheme(const std::string& name, WorkspaceTheme& theme) {
    aurel::SettingsStore settings;
    const std::string path = aurel::ProgramFolder() + "Themes/" + name + ".txt";
    if (!aurel::LoadTheme(aurel::DualString(path), name, settings)) {
        Fail("cannot read the theme file " + path);
        return false;
    }
    theme = WorkspaceThemeOf(aurel::CurrentTheme().workspace);
    return true;
}

int RunRender(const RenderArguments& args) {
    RenderView view;
    if (!ParseRenderView(args.size, args.zoom, args.center, view)) {
        return 1;
    }
    WorkspaceTheme theme;
    if (!LoadWorkspaceTheme(args.theme, theme)) {
        return 1;
    }
    const ImageLibrary library;
    StderrPrompt prompt;
    WirrelDoc doc;
    std::vector<WirrelImageRecord> images;
    if (!ReadDocument(args.file, doc, images, prompt)) {
        return 1;
    }
    SelectionTracker textures;
    SelectionTracker pictures;
    LoadDocumentImages(doc, images, prompt, textures, pictures);
    LoadBackground(doc, args.file);
    float framePos = 0.0f;
    ParseCoordinate(args.framePos, framePos);
    if (!PlaceCursor(doc, args.anim, framePos)) {
        return 1;
    }
    WorkspaceBuffers buffers;
    const bool painted = PaintFrame(doc, view, theme, args.skinsOnly, buffers);
    if (!painted) {
        return Fail("the pins of " + args.anim + " at " + args.framePos + " can't be posed");
    }
    WirrelTexImage picture;
    picture.surface = std::move(buffers.back);
    if (!picture.Save(aurel::DualString(AbsolutePath(args.out)))) {
        return Fail("cannot write " + args.out);
    }
    return 0;
}

}  // namespace

Subcommand AddRender(CLI::App& tool) {
    CLI::App* app = tool.add_subcommand(
        "render",
        "paint the frame of ANIM at FRAMEPOS as the workspace shows it in animate mode with nothing "
        "selected, and write it to OUT as PNG");
    auto args = std::make_shared<RenderArguments>();
    app->add_option("FILE", args->file, "the document to read")->required();
    app->add_option("ANIM", args->anim, "the name of the animation")->required();
    app->add_option("FRAMEPOS", args->framePos, "the play position (2.5: half way from key frame 2 to 3)")
        ->required()
        ->check(CoordinateText());
    app->add_option("OUT", args->out, "the PNG file to write")->required();
    app->add_option("--size", args->size, "the picture's size in pixels (default 512x512)")->type_name("WxH");
    app->add_option("--zoom", args->zoom, "the zoom, 1 showing 32 pixels a unit (default 1)")
        ->check(CoordinateText());
    app->add_option("--center", args->center, "the world point at the picture's centre (default 0,0)")
        ->type_name("X,Y");
    app->add_option("--theme", args->theme, "the theme of the colours and sizes (default Paleform)");
    app->add_flag("--skins-only", args->skinsOnly, "only the skins, on a transparent background");
    return {app, [args] { return RunRender(*args); }};
}

}  // namespace kovra::cli
