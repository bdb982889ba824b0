#pragma once
// The fixed ids of the navigation column's panels and controls, and the kinds its property edits give
// their commands (edits of one kind in a row merge into one undo step).

namespace kovra {

inline constexpr int kNavEditModePanel = 5000;
inline constexpr int kNavViewPanel = 5001;
inline constexpr int kNavAnimPanel = 5002;
inline constexpr int kNavImagePanel = 5003;
inline constexpr int kNavBonePanel = 5004;
inline constexpr int kNavBgPanel = 5005;
inline constexpr int kNavTexturePanel = 5006;
inline constexpr int kNavTexturesPanel = 5007;
inline constexpr int kNavSkinPanel = 5008;
inline constexpr int kNavAnimList = 5009;
inline constexpr int kNavAnimAdd = 5010;
inline constexpr int kNavAnimDel = 5011;
inline constexpr int kNavAnimTypes = 5012;
inline constexpr int kNavBoneProps = 5013;
inline constexpr int kNavBoneTypes = 5014;
inline constexpr int kNavSkinProps = 5015;
inline constexpr int kNavBgProps = 5016;
inline constexpr int kNavTextureProps = 5017;
inline constexpr int kNavScaleEdit = 5018;
inline constexpr int kNavOptions = 5019;
inline constexpr int kNavOptionIk = 5020;
inline constexpr int kNavOptionRotate = 5021;
inline constexpr int kNavViewLabels = 5022;
inline constexpr int kNavViewBones = 5023;
inline constexpr int kNavViewSkinning = 5024;
inline constexpr int kNavViewBg = 5025;
inline constexpr int kNavViewCollision = 5026;
inline constexpr int kNavBgLoad = 5027;
inline constexpr int kNavBgAlpha = 5028;
inline constexpr int kNavBgAlphaLabel = 5029;
inline constexpr int kNavBgSource = 5030;
inline constexpr int kNavEditMode = 5031;
inline constexpr int kNavModeAnimate = 5032;  // 5032 + the edit mode
inline constexpr int kNavModeBackground = 5035;
inline constexpr int kNavImageReplace = 5036;
inline constexpr int kNavImageAdd = 5037;
inline constexpr int kNavImageDel = 5038;
inline constexpr int kNavTexturesScale = 5039;
inline constexpr int kNavImageList = 5040;
inline constexpr int kNavTools = 5042;
inline constexpr int kNavToolSkin = 5043;  // 5043 + the skin tool
inline constexpr int kNavToolTile = 5045;
inline constexpr int kNavSkinMirror = 5046;
inline constexpr int kNavSkinFlip = 5047;
inline constexpr int kNavSkinIncZ = 5048;
inline constexpr int kNavSkinDecZ = 5049;
inline constexpr int kNavSkinCollision = 5050;
inline constexpr int kNavSkinConvex = 5051;
inline constexpr int kNavCollisionEdit = 5052;
inline constexpr int kNavSkinZ = 5053;
inline constexpr int kNavCollisionPanel = 5054;
inline constexpr int kNavCollisionType = 5055;
inline constexpr int kNavCollisionProps = 5056;

// Kinds of the commands the panels build; the workspace's background drag uses 40 and 41 too, so that a
// typed offset or scale joins a drag of the same property.
inline constexpr int kKindImageSelection = 30;
inline constexpr int kKindSkinMirror = 6;
inline constexpr int kKindSkinFlip = 7;
inline constexpr int kKindBgAlpha = 39;
inline constexpr int kKindBgOffset = 40;
inline constexpr int kKindBgScale = 41;
inline constexpr int kKindSkinAngle = 74;
inline constexpr int kKindSkinScaleX = 75;
inline constexpr int kKindSkinScaleY = 76;
inline constexpr int kKindSkinOffsetX = 77;
inline constexpr int kKindSkinOffsetY = 78;
inline constexpr int kKindSkinCollision = 79;
inline constexpr int kKindPinPosition = 80;
inline constexpr int kKindPinAngle = 81;
inline constexpr int kKindPinLength = 82;
inline constexpr int kKindTexLeft = 84;  // to 87: left, top, width, height

}  // namespace kovra
