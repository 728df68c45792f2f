#pragma once
#include <cstdint>

/// Numbers of the messages in the catalogues of `languages`, all of them.
namespace catalogador::message {

// Questions and notices.
constexpr std::int32_t confirmSave = 100;
constexpr std::int32_t required = 101;
constexpr std::int32_t confirmDelete = 102;
constexpr std::int32_t recordSaved = 103;
constexpr std::int32_t recordDeleted = 104;
constexpr std::int32_t confirmDiscard = 105;
constexpr std::int32_t notNumeric = 106;
constexpr std::int32_t duplicateValue = 107;
constexpr std::int32_t openExportedFile = 108;
constexpr std::int32_t exportFileName = 109;
constexpr std::int32_t exportDialogTitle = 110;
constexpr std::int32_t exportFolder = 111;
constexpr std::int32_t exportFileKinds = 112;
constexpr std::int32_t recordGone = 113;
constexpr std::int32_t recordChanged = 114;
constexpr std::int32_t nothingToShow = 115;
constexpr std::int32_t duplicateRule = 116;
constexpr std::int32_t noRightToOpen = 117;
constexpr std::int32_t noReceiptPosition = 118;
constexpr std::int32_t listStopped = 119;
constexpr std::int32_t outcomeUnknown = 120;
constexpr std::int32_t textRefused = 121;
constexpr std::int32_t readAgain = 122;

// The line under the list, and what stands in an empty list.
constexpr std::int32_t position = 130;
constexpr std::int32_t count = 131;
constexpr std::int32_t filteredCount = 132;
constexpr std::int32_t nextStep = 133;
constexpr std::int32_t emptyList = 134;
constexpr std::int32_t noMatch = 135;

// Actions of the command bars: caption, tooltip, description, category.
constexpr std::int32_t editCaption = 200;
constexpr std::int32_t editTooltip = 201;
constexpr std::int32_t editDescription = 202;
constexpr std::int32_t editCategory = 203;
constexpr std::int32_t helpMenuCaption = 204;
constexpr std::int32_t helpMenuTooltip = 205;
constexpr std::int32_t helpMenuDescription = 206;
constexpr std::int32_t helpMenuCategory = 207;
constexpr std::int32_t createCaption = 208;
constexpr std::int32_t createTooltip = 209;
constexpr std::int32_t createDescription = 210;
constexpr std::int32_t recordCategory = 211;
constexpr std::int32_t modifyCaption = 212;
constexpr std::int32_t modifyTooltip = 213;
constexpr std::int32_t modifyDescription = 214;
constexpr std::int32_t deleteCaption = 215;
constexpr std::int32_t deleteTooltip = 216;
constexpr std::int32_t deleteDescription = 217;
constexpr std::int32_t saveCaption = 218;
constexpr std::int32_t saveTooltip = 219;
constexpr std::int32_t saveDescription = 220;
constexpr std::int32_t cancelCaption = 221;
constexpr std::int32_t cancelTooltip = 222;
constexpr std::int32_t cancelDescription = 223;
constexpr std::int32_t helpCaption = 224;
constexpr std::int32_t helpTooltip = 225;
constexpr std::int32_t helpDescription = 226;
constexpr std::int32_t helpCategory = 227;
constexpr std::int32_t applicationCaption = 228;
constexpr std::int32_t applicationTooltip = 229;
constexpr std::int32_t applicationDescription = 230;
constexpr std::int32_t applicationCategory = 231;
constexpr std::int32_t filterCaption = 232;
/// Also the caption of the filter button while no filter is applied.
constexpr std::int32_t filterTooltip = 233;
constexpr std::int32_t filterDescription = 234;
constexpr std::int32_t filterCategory = 235;
constexpr std::int32_t groupCaption = 236;
constexpr std::int32_t exportCaption = 237;
constexpr std::int32_t exportTooltip = 238;
constexpr std::int32_t exportDescription = 239;
constexpr std::int32_t exportCategory = 240;
constexpr std::int32_t printCaption = 241;
constexpr std::int32_t printTooltip = 242;
constexpr std::int32_t printDescription = 243;
constexpr std::int32_t printCategory = 244;
constexpr std::int32_t filteredCaption = 245;

// Letters that, with Ctrl, run an action.
constexpr std::int32_t createLetter = 246;
constexpr std::int32_t modifyLetter = 247;
constexpr std::int32_t deleteLetter = 248;
constexpr std::int32_t saveLetter = 249;
constexpr std::int32_t cancelLetter = 250;

constexpr std::int32_t nameTaken = 301;

/// The error that any procedure of the form or of the modules can end with.
constexpr std::int32_t procedureFailed = 500;

// No new code, and why.
constexpr std::int32_t noCode = 508;
constexpr std::int32_t sequenceHeld = 510;
constexpr std::int32_t sequenceReadOnly = 511;
constexpr std::int32_t sequenceWithoutRoom = 512;
constexpr std::int32_t sequenceConnectionLost = 513;
constexpr std::int32_t sequenceUsedUp = 514;
constexpr std::int32_t sequenceMissing = 515;
constexpr std::int32_t sequenceNotRead = 516;

// What the user could not do because a procedure failed.
constexpr std::int32_t cannotShowList = 520;
constexpr std::int32_t cannotOpenRecord = 521;
constexpr std::int32_t cannotStartRecord = 522;
constexpr std::int32_t cannotSaveRecord = 523;
constexpr std::int32_t cannotCheckRecord = 524;
constexpr std::int32_t cannotDeleteRecord = 525;
constexpr std::int32_t cannotCheckUses = 526;
constexpr std::int32_t cannotChangeUses = 527;
constexpr std::int32_t cannotFilterList = 528;
constexpr std::int32_t cannotFindRecord = 529;
constexpr std::int32_t cannotKeepWidths = 530;
constexpr std::int32_t cannotExportList = 531;
constexpr std::int32_t cannotPrintList = 532;
constexpr std::int32_t cannotOpenOtherScreen = 533;
constexpr std::int32_t cannotFillChoices = 534;
constexpr std::int32_t cannotPrepareScreen = 535;
constexpr std::int32_t cannotCheckAccess = 536;
constexpr std::int32_t cannotCancelEdit = 537;
constexpr std::int32_t cannotRunCommand = 538;
constexpr std::int32_t cannotUseList = 539;
constexpr std::int32_t cannotReachNextField = 540;

// Texts of the real window itself, its boxes and its help.
constexpr std::int32_t yesButton = 550;
constexpr std::int32_t noButton = 551;
constexpr std::int32_t okButton = 552;
constexpr std::int32_t questionTitle = 553;
constexpr std::int32_t noticeTitle = 554;
constexpr std::int32_t errorTitle = 555;
constexpr std::int32_t replaceFile = 556;
constexpr std::int32_t helpBack = 557;
constexpr std::int32_t helpForward = 558;
constexpr std::int32_t helpContents = 559;
constexpr std::int32_t closeButton = 560;
constexpr std::int32_t requiredField = 561;
constexpr std::int32_t sortedAscending = 562;
constexpr std::int32_t sortedDescending = 563;

constexpr std::int32_t activationFailed = 901;
constexpr std::int32_t addingFailed = 902;

}  // namespace catalogador::message
