// Keys of the language file's "Longsection" section: the long-section
// panel's checks, the generated input's note, and the panel's widgets.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::longsection {

inline constexpr MessageKey kTitle{"Longsection", "title"};

// The strings' roles, named in the checks.
inline constexpr MessageKey kMasterRole{"Longsection", "master"};
inline constexpr MessageKey kGroundRole{"Longsection", "ground"};
inline constexpr MessageKey kDesignRole{"Longsection", "design"};
inline constexpr MessageKey kExtraRole{"Longsection", "extra"};

// What the checks find.
inline constexpr MessageKey kNoModel{"Longsection", "nomodel"};
inline constexpr MessageKey kModelMissing{"Longsection", "nomodelx"};
inline constexpr MessageKey kNoString{"Longsection", "nostring"};
inline constexpr MessageKey kStringMissing{"Longsection", "nostringx"};
inline constexpr MessageKey kShortString{"Longsection", "shortstring"};
inline constexpr MessageKey kTooManyPoints{"Longsection", "toomany"};
inline constexpr MessageKey kBadName{"Longsection", "badname"};
inline constexpr MessageKey kBadScale{"Longsection", "scale"};
inline constexpr MessageKey kBadInterval{"Longsection", "interval"};
inline constexpr MessageKey kBadTextHeight{"Longsection", "textheight"};
inline constexpr MessageKey kBadChainage{"Longsection", "chainage"};
inline constexpr MessageKey kBadDatum{"Longsection", "datum"};
inline constexpr MessageKey kBadRange{"Longsection", "range"};
inline constexpr MessageKey kSheetTooSmall{"Longsection", "sheetsmall"};
inline constexpr MessageKey kTooManySheets{"Longsection", "sheets"};

// The generated input and its drawing.
inline constexpr MessageKey kGeneratedNote{"Longsection", "note"};
inline constexpr MessageKey kNoScript{"Longsection", "noscript"};
inline constexpr MessageKey kNoPicture{"Longsection", "nosvg"};

// The panel.
inline constexpr MessageKey kFiles{"Longsection", "files"};
inline constexpr MessageKey kNew{"Longsection", "new"};
inline constexpr MessageKey kOpen{"Longsection", "open"};
inline constexpr MessageKey kSave{"Longsection", "save"};
inline constexpr MessageKey kSaveAs{"Longsection", "saveas"};
inline constexpr MessageKey kFileFilter{"Longsection", "filter"};
inline constexpr MessageKey kModel{"Longsection", "model"};
inline constexpr MessageKey kMasterLabel{"Longsection", "masterl"};
inline constexpr MessageKey kGroundLabel{"Longsection", "groundl"};
inline constexpr MessageKey kDesignLabel{"Longsection", "designl"};
inline constexpr MessageKey kExtras{"Longsection", "extras"};
inline constexpr MessageKey kStringColumn{"Longsection", "colstring"};
inline constexpr MessageKey kLineTypeColumn{"Longsection", "collinetype"};
inline constexpr MessageKey kLayerColumn{"Longsection", "collayer"};
inline constexpr MessageKey kAdd{"Longsection", "add"};
inline constexpr MessageKey kRemove{"Longsection", "remove"};
inline constexpr MessageKey kHorizontalScale{"Longsection", "hscale"};
inline constexpr MessageKey kVerticalScale{"Longsection", "vscale"};
inline constexpr MessageKey kSheet{"Longsection", "sheet"};
inline constexpr MessageKey kSize{"Longsection", "size"};
inline constexpr MessageKey kCustomSize{"Longsection", "custom"};
inline constexpr MessageKey kOrientation{"Longsection", "orient"};
inline constexpr MessageKey kPortrait{"Longsection", "portrait"};
inline constexpr MessageKey kLandscape{"Longsection", "landscape"};
inline constexpr MessageKey kWidth{"Longsection", "width"};
inline constexpr MessageKey kHeight{"Longsection", "height"};
inline constexpr MessageKey kMargins{"Longsection", "margins"};
inline constexpr MessageKey kLeft{"Longsection", "left"};
inline constexpr MessageKey kRight{"Longsection", "right"};
inline constexpr MessageKey kTop{"Longsection", "top"};
inline constexpr MessageKey kBottom{"Longsection", "bottom"};
inline constexpr MessageKey kChainages{"Longsection", "chainages"};
inline constexpr MessageKey kStartChainage{"Longsection", "start"};
inline constexpr MessageKey kEndChainage{"Longsection", "end"};
inline constexpr MessageKey kChainageHint{"Longsection", "ends"};
inline constexpr MessageKey kBandInterval{"Longsection", "intervall"};
inline constexpr MessageKey kGradeColumns{"Longsection", "gradecols"};
inline constexpr MessageKey kDatumLevel{"Longsection", "datuml"};
inline constexpr MessageKey kDatumHint{"Longsection", "datumhint"};
inline constexpr MessageKey kTextHeight{"Longsection", "textheightl"};
inline constexpr MessageKey kGroundLineType{"Longsection", "groundtype"};
inline constexpr MessageKey kDesignLineType{"Longsection", "designtype"};
inline constexpr MessageKey kGenerate{"Longsection", "generate"};
inline constexpr MessageKey kPutOnList{"Longsection", "torun"};
inline constexpr MessageKey kRunNow{"Longsection", "runnow"};
inline constexpr MessageKey kPreview{"Longsection", "preview"};
inline constexpr MessageKey kPreviewHint{"Longsection", "previewnone"};
inline constexpr MessageKey kWritten{"Longsection", "written"};
inline constexpr MessageKey kSheetsInfo{"Longsection", "sheetsinfo"};
inline constexpr MessageKey kProblems{"Longsection", "problems"};
inline constexpr MessageKey kSaveFirst{"Longsection", "nofile"};
inline constexpr MessageKey kSaveFailed{"Longsection", "savefailed"};

}  // namespace korvane::texts::longsection
