#include "views/nav/gui_nav.h"

#include "gui/gradient.h"
#include "gui/gui_props_rows.h"
#include "images/wirrel_tex_image.h"
#include "settings/lang.h"
#include "settings/theme.h"
#include "views/nav/nav_ids.h"

namespace kovra {

using namespace kestrel2::win;

namespace {

constexpr int kRow = 24;  // a row of buttons, combos or checks
constexpr int kInset = 6;

// A theme icon at the ratio; a picture with the button's initials when the file can't be read.
aurel::ImageSurface NavIcon(const std::string& file, const std::string& initials, double ratio) {
    WirrelTexImage image;
    if (image.Load(aurel::ThemeIconPath(file, ratio)) == 0 && !image.surface.IsEmpty()) {
        return image.surface;
    }
    const int side = static_cast<int>(16 * ratio);
    aurel::ImageSurface picture;
    picture.Resize(side, side);
    picture.Clear(0);
    aurel::TextStyle style;
    style.horizontal = aurel::TextAlign::Centre;
    style.vertical = aurel::TextAlign::Centre;
    picture.DrawText(initials, 0, 0, side, side, aurel::CurrentTheme().ui.labelFontColor,
                     aurel::TextFont{"Segoe UI", static_cast<int>(11 * ratio), true}, style);
    return picture;
}

ToolButton Tool(int id, const std::string& key, const std::string& icon, const std::string& initials,
                ToolStyle style, double ratio) {
    return ToolButton{id, key, NavIcon(icon, initials, ratio), {}, style};
}

}  // namespace

GuiNav::GuiNav(const NavContext& context)
    : document_(context.document),
      hub_(context.hub),
      window_(context.window),
      pins_(context.pinSelection),
      textures_(context.textureSelection),
      images_(context.imageSelection) {
    openImages = [this](const aurel::DualString& title, bool multiple) {
        return OpenImageFiles(this, title, multiple);
    };
    document_.onChanged.Add(this, &GuiNav::OnDocumentChanged);
    pins_.onSelectionChanged.Add(this, &GuiNav::OnSelectionChanged);
    pins_.onCurrentChanged.Add(this, &GuiNav::OnCurrentChanged);
    textures_.onCurrentChanged.Add(this, &GuiNav::OnCurrentChanged);
    images_.onCurrentChanged.Add(this, &GuiNav::OnCurrentChanged);
    textures_.onSelectionChanged.Add(this, &GuiNav::OnSelectionChanged);
    images_.onSelectionChanged.Add(this, &GuiNav::OnSelectionChanged);
}

GuiNav::~GuiNav() {
    Detach();
}

void GuiNav::Detach() {
    if (!attached_) {
        return;
    }
    attached_ = false;
    document_.onChanged.Remove(this, &GuiNav::OnDocumentChanged);
    pins_.onSelectionChanged.Remove(this, &GuiNav::OnSelectionChanged);
    pins_.onCurrentChanged.Remove(this, &GuiNav::OnCurrentChanged);
    textures_.onSelectionChanged.Remove(this, &GuiNav::OnSelectionChanged);
    textures_.onCurrentChanged.Remove(this, &GuiNav::OnCurrentChanged);
    images_.onSelectionChanged.Remove(this, &GuiNav::OnSelectionChanged);
    images_.onCurrentChanged.Remove(this, &GuiNav::OnCurrentChanged);
}

void GuiNav::OnCreated() {
    Build();
}

void GuiNav::Update() {
    IGuiCustomControl::Update();
    if (built_ && attached_ && (hub_.EditMode() != shownMode_ || hub_.SkinTool() != shownTool_)) {
        SetMode(hub_.EditMode());
    }
}

void GuiNav::OnPaint(aurel::ImageSurface& target) {
    const aurel::ThemePanels& panels = aurel::CurrentTheme().panels;
    FillGradientV(target, 0, 0, target.Width() - 1, target.Height() - 1, panels.bgGrad1, panels.bgGrad2);
}

std::shared_ptr<GuiSubPanel> GuiNav::AddPanel(int id, const std::string& key,
                                              std::shared_ptr<GuiSubPanel> panel) {
    const int padding = aurel::CurrentTheme().panels.padding;
    panel->Create(*this, id, padding, 0, width - 2 * padding, GuiSubPanel::BarHeight());
    AddChild(panel);
    panel->SetLang("NAV", key);
    panel->changeListeners.Add(this, &GuiNav::OnPanelToggled);
    panel->commandListeners.Add(this, &GuiNav::OnCommand);
    panels_[id] = panel;
    return panel;
}

template <class T, class... Args>
std::shared_ptr<T> GuiNav::Add(GuiSubPanel& panel, int id, int x, int y, int w, int h, Args&&... args) {
    auto control = MakeChild<T>(panel, id, x, y, w, h, std::forward<Args>(args)...);
    controls_[id] = control.get();
    return control;
}

void GuiNav::Build() {
    if (built_) {
        return;
    }
    built_ = true;
    BuildModePanel();
    BuildImagePanel();
    BuildAnimPanel();
    BuildSkinPanels();
    BuildBgPanel();
    BuildBonePanels();
    BuildViewPanel();
    ApplyLanguage();
    OnDocumentChanged();
}

void GuiNav::BuildModePanel() {
    auto panel = AddPanel(kNavEditModePanel, "EditModePanel", std::make_shared<GuiSubPanel>());
    const double ratio = PixelRatio();
    const int bar = GuiSubPanel::BarHeight();
    auto modes = Add<GuiToolbar>(*panel, kNavEditMode, kInset, bar + 4, panel->width - 2 * kInset,
                                 GuiToolbar::kButtonSize + 2, ratio);
    const aurel::ThemeIcons& icons = aurel::CurrentTheme().icons;
    modes->SetLang("NAV", "", "EditModeSelTip");
    modes->AddButton(Tool(kNavModeAnimate, "Animate", icons.editModeAnimIco, "An", ToolStyle::Radio, ratio));
    modes->AddButton(
        Tool(kNavModeAnimate + 1, "Build", icons.editModeBuildIco, "Bu", ToolStyle::Radio, ratio));
    modes->AddButton(
        Tool(kNavModeAnimate + 2, "Textures", icons.editModeTexIco, "Tx", ToolStyle::Radio, ratio));
    modes->AddButton(
        Tool(kNavModeAnimate + 3, "Background", icons.editModeBgIco, "Bg", ToolStyle::Radio, ratio));
    const int second = bar + 8 + GuiToolbar::kButtonSize;
    auto options = Add<GuiToolbar>(*panel, kNavOptions, kInset, second, panel->width - 2 * kInset,
                                   GuiToolbar::kButtonSize + 2, ratio);
    options->SetLang("NAV", "", "EditModeSelBonesTip");
    options->AddButton(Tool(kNavOptionIk, "OptionIk", icons.optionIk, "IK", ToolStyle::Check, ratio));
    options->AddButton(
        Tool(kNavOptionRotate, "OptionRotate", icons.optionRotate, "Rc", ToolStyle::Check, ratio));
    auto tools = Add<GuiToolbar>(*panel, kNavTools, kInset, second, panel->width - 2 * kInset,
                                 GuiToolbar::kButtonSize + 2, ratio);
    tools->SetLang("NAV", "", "EditModeSelSkinsTip");
    tools->AddButton(Tool(kNavToolSkin, "ToolSkinning", icons.toolSkinning, "Sk", ToolStyle::Radio, ratio));
    tools->AddButton(Tool(kNavToolSkin + 1, "ToolCdRect", icons.toolCdRect, "Re", ToolStyle::Radio, ratio));
    tools->AddButton(Tool(kNavToolTile, "ToolTile", icons.toolTile, "Ti", ToolStyle::Radio, ratio));
    panel->SetFullHeight(second + GuiToolbar::kButtonSize + 8);
}

void GuiNav::BuildImagePanel() {
    auto panel = AddPanel(kNavImagePanel, "ImagePanel", std::make_shared<GuiSubPanel>());
    const int bar = GuiSubPanel::BarHeight();
    const int inner = panel->width - 2 * kInset;
    const int button = (inner - 8) / 3;
    const std::pair<int, const char*> buttons[] = {
        {kNavImageAdd, "ImageAdd"}, {kNavImageReplace, "ImageReplace"}, {kNavImageDel, "ImageDel"}};
    for (int i = 0; i < 3; ++i) {
        auto control =
            Add<GuiButton>(*panel, buttons[i].first, kInset + i * (button + 4), bar + 4, button, 22);
        control->SetLang("NAV", buttons[i].second, std::string(buttons[i].second) + "Tip");
    }
    auto list = Add<GuiListBox>(*panel, kNavImageList, kInset, bar + 4 + kRow + 2, inner,
                                5 * GuiListBox::kItemHeight + 2, window_);
    panel->SetFullHeight(list->y + list->height + 8);
}

void GuiNav::BuildAnimPanel() {
    auto panel = AddPanel(kNavAnimPanel, "AnimPanel", std::make_shared<GuiSubPanel>());
    const int bar = GuiSubPanel::BarHeight();
    const int inner = panel->width - 2 * kInset;
    auto list = Add<GuiListBox>(*panel, kNavAnimList, kInset, bar + 4, inner, 4 * GuiListBox::kItemHeight + 2,
                                window_);
    list->SetEditable(true);
    list->SetMaxLength(31);
    list->editListeners.Add(this, &GuiNav::OnListEdited);
    const int y = list->y + list->height + 4;
    const int button = 44;
    auto types = Add<GuiComboBox>(*panel, kNavAnimTypes, kInset, y, inner - 2 * (button + 4), 22);
    for (const char* type : {"Dup. Frame", "Dup. Frame 1", "Dup. All", "Empty"}) {
        types->AddString(type);
    }
    types->SetSel(0);
    Add<GuiButton>(*panel, kNavAnimAdd, kInset + inner - 2 * button - 4, y, button, 22)
        ->SetLang("NAV", "AnimAdd", "AnimAddTip");
    Add<GuiButton>(*panel, kNavAnimDel, kInset + inner - button, y, button, 22)
        ->SetLang("NAV", "AnimDel", "AnimDelTip");
    panel->SetFullHeight(y + kRow + 6);
}

void GuiNav::BuildSkinPanels() {
    auto textures = AddPanel(kNavTexturesPanel, "TexturesPanel", std::make_shared<GuiSubPanel>());
    const int bar = GuiSubPanel::BarHeight();
    const int inner = textures->width - 2 * kInset;
    Add<GuiLabel>(*textures, kNavTexturesScale, kInset, bar + 4, inner - 56, 22)
        ->SetLang("NAV", "TexturesScale", "TexturesScaleTip");
    Add<GuiEdit>(*textures, kNavScaleEdit, kInset + inner - 50, bar + 4, 50, 22);
    textures->SetFullHeight(bar + 4 + kRow + 6);

    auto skin = std::make_shared<GuiSubPanelSkin>(document_, textures_, images_);
    AddPanel(kNavSkinPanel, "SkinPanel", skin);
    skin->offerListeners.Add(this, &GuiNav::OnPaletteOffer);
    skin->dropListeners.Add(this, &GuiNav::OnPaletteDrop);
    int y = skin->PaletteBottom() + 6;
    auto props = Add<GuiProps>(*skin, kNavSkinProps, kInset, y, inner, 5 * 19 + 2, window_);
    props->AddChangeListener(this, &GuiNav::OnPropsChanged);
    y += props->height + 4;
    const int half = (inner - 4) / 2;
    Add<GuiButton>(*skin, kNavSkinMirror, kInset, y, half, 22)->SetLang("NAV", "SkinMirror", "SkinMirrorTip");
    Add<GuiButton>(*skin, kNavSkinFlip, kInset + half + 4, y, half, 22)
        ->SetLang("NAV", "SkinFlip", "SkinFlipTip");
    y += kRow;
    Add<GuiLabel>(*skin, kNavSkinZ, kInset, y, half, 22);
    const int quarter = (half - 4) / 2;
    Add<GuiButton>(*skin, kNavSkinIncZ, kInset + half + 4, y, quarter, 22)
        ->SetLang("NAV", "SkinIncZ", "SkinIncZTip");
    Add<GuiButton>(*skin, kNavSkinDecZ, kInset + half + 8 + quarter, y, quarter, 22)
        ->SetLang("NAV", "SkinDecZ", "SkinDecZTip");
    y += kRow;
    auto collision = Add<GuiComboBox>(*skin, kNavSkinCollision, kInset, y, inner, 22);
    collision->SetLang("NAV", "");
    for (const char* key :
         {"CollisionTypeNoObb", "CollisionTypeDef1", "CollisionTypeDef2", "CollisionTypeEdit"}) {
        collision->AddLangString(key);
    }
    y += kRow;
    auto convex = Add<GuiCheckbox>(*skin, kNavSkinConvex, kInset, y, inner, 22);
    convex->SetLang("NAV", "", "SkinConvexTip");
    convex->SetText("Use convex hull for collision detection");
    // The document keeps no hull flag for a skin yet: the switch is shown but can't be used.
    convex->Enable(false);
    skin->SetFullHeight(y + kRow + 4);

    auto texture = AddPanel(kNavTexturePanel, "TexturePanel", std::make_shared<GuiSubPanel>());
    auto rect = Add<GuiProps>(*texture, kNavTextureProps, kInset, bar + 4, inner, 4 * 19 + 2, window_);
    rect->AddChangeListener(this, &GuiNav::OnPropsChanged);
    texture->SetFullHeight(rect->y + rect->height + 6);
}

void GuiNav::BuildBgPanel() {
    auto panel = AddPanel(kNavBgPanel, "CommonBg", std::make_shared<GuiSubPanel>());
    const int bar = GuiSubPanel::BarHeight();
    const int inner = panel->width - 2 * kInset;
    auto props = Add<GuiProps>(*panel, kNavBgProps, kInset, bar + 4, inner, 11 * 19 + 2, window_);
    props->AddChangeListener(this, &GuiNav::OnPropsChanged);
    int y = props->y + props->height + 4;
    auto source = Add<GuiComboBox>(*panel, kNavBgSource, kInset, y, inner - 64, 22);
    source->SetLang("NAV", "");
    source->AddLangString("BgSourceNone");
    source->AddLangString("BgSourceClipboard");
    source->SetSel(0);
    Add<GuiButton>(*panel, kNavBgLoad, kInset + inner - 60, y, 60, 22)->SetLang("NAV", "BgLoad", "BgLoadTip");
    y += kRow;
    auto alphaLabel = Add<GuiLabel>(*panel, kNavBgAlphaLabel, kInset, y, 44, 22);
    alphaLabel->SetLabel("Alpha");
    auto alpha = Add<GuiSlider>(*panel, kNavBgAlpha, kInset + 46, y, inner - 46, 22);
    alpha->SetRange(0, 255);
    alpha->HideTicks(true);
    panel->SetFullHeight(y + kRow + 6);
}

void GuiNav::BuildBonePanels() {
    auto bone = AddPanel(kNavBonePanel, "BonePanel", std::make_shared<GuiSubPanel>());
    const int bar = GuiSubPanel::BarHeight();
    const int inner = bone->width - 2 * kInset;
    auto types = Add<GuiComboBox>(*bone, kNavBoneTypes, kInset, bar + 4, inner, 22);
    for (const char* type : {"Bone", "Root", "Attach", "Tail"}) {
        types->AddString(type);
    }
    auto props = Add<GuiProps>(*bone, kNavBoneProps, kInset, bar + 4 + kRow + 2, inner, 5 * 19 + 2, window_);
    props->AddChangeListener(this, &GuiNav::OnPropsChanged);
    bone->SetFullHeight(props->y + props->height + 6);

    auto collision = AddPanel(kNavCollisionPanel, "CommonCollision", std::make_shared<GuiSubPanel>());
    auto rect = Add<GuiProps>(*collision, kNavCollisionProps, kInset, bar + 4, inner, 4 * 19 + 2, window_);
    auto kinds =
        Add<GuiComboBox>(*collision, kNavCollisionType, kInset, rect->y + rect->height + 4, inner, 22);
    kinds->SetLang("NAV", "");
    for (const char* key : {"CollisionTypeDef1", "CollisionTypeDef2", "CollisionTypeEdit"}) {
        kinds->AddLangString(key);
    }
    kinds->Enable(false);
    collision->SetFullHeight(kinds->y + kRow + 6);
}

void GuiNav::BuildViewPanel() {
    auto panel = AddPanel(kNavViewPanel, "ViewPanel", std::make_shared<GuiSubPanel>());
    const int bar = GuiSubPanel::BarHeight();
    const int half = (panel->width - 2 * kInset) / 2;
    const struct {
        int id;
        const char* key;
        const char* tip;
    } checks[] = {{kNavViewLabels, "ViewLabels", "ViewLabelsTip"},
                  {kNavViewBones, "ViewBones", "ViewBonesTip"},
                  {kNavViewSkinning, "ViewSkinning", "ViewSkinningTip"},
                  {kNavViewCollision, "CommonCollision", "ViewCollisionTip"},
                  {kNavViewBg, "CommonBg", "ViewBgTip"}};
    for (int i = 0; i < 5; ++i) {
        Add<GuiCheckbox>(*panel, checks[i].id, kInset + (i % 2) * half, bar + 4 + (i / 2) * 22, half, 22)
            ->SetLang("NAV", checks[i].key, checks[i].tip);
    }
    panel->SetFullHeight(bar + 4 + 3 * 22 + 6);
}

void GuiNav::SetMode(int mode) {
    if (!built_) {
        return;
    }
    if (auto* modes = Control<GuiToolbar>(kNavEditMode)) {
        for (int m = kModeAnimate; m <= kModeBackground; ++m) {
            modes->SetButtonState(kNavModeAnimate + m, m == mode);
        }
    }
    Control<GuiToolbar>(kNavOptions)->IGuiWindow::Show(mode == kModeAnimate);
    Control<GuiToolbar>(kNavTools)->IGuiWindow::Show(mode == kModeBuild);
    Control<GuiCheckbox>(kNavViewSkinning)->Enable(mode != kModeBuild);
    const int tool = hub_.SkinTool();
    shownMode_ = mode;
    shownTool_ = tool;
    for (int t = kToolSkin; t <= kToolTile; ++t) {
        Control<GuiToolbar>(kNavTools)->SetButtonState(kNavToolSkin + t, t == tool);
    }
    switch (mode) {
        case kModeAnimate:
            chain_ = {kNavEditModePanel, kNavAnimPanel, kNavBonePanel, kNavViewPanel};
            break;
        case kModeBuild:
            if (tool == kToolSkin) {
                chain_ = {kNavEditModePanel, kNavAnimPanel, kNavTexturesPanel, kNavSkinPanel, kNavViewPanel};
            } else if (tool == kToolRectangle) {
                chain_ = {kNavEditModePanel, kNavAnimPanel, kNavCollisionPanel, kNavViewPanel};
            }
            break;
        case kModeTextures:
            chain_ = {kNavEditModePanel, kNavImagePanel, kNavTexturePanel};
            break;
        default:
            chain_ = {kNavEditModePanel, kNavBgPanel, kNavViewPanel};
            break;
    }
    LayOut();
}

void GuiNav::LayOut() {
    const int padding = aurel::CurrentTheme().panels.padding;
    int y = padding;
    for (auto& [id, panel] : panels_) {
        const bool shown = std::find(chain_.begin(), chain_.end(), id) != chain_.end();
        panel->Show(shown);
    }
    for (const int id : chain_) {
        GuiSubPanel& panel = *panels_.at(id);
        panel.SetPos(padding, y, width - 2 * padding, panel.Height());
        y += panel.Height() + padding;
    }
    Redraw();
}

void GuiNav::OnPanelToggled(int) {
    LayOut();
}

}  // namespace kovra
