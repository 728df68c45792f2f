#pragma once

/// The numbers of the findings, by what they say. A number is never given to another finding.
namespace catalogador::checks::kind {

constexpr int tableMissing = 1;
constexpr int columnMissing = 2;
constexpr int columnType = 3;
constexpr int keyMissing = 4;
constexpr int stampWholeSeconds = 5;
constexpr int optionalTableMissing = 6;

constexpr int viewMissing = 10;
constexpr int viewTwice = 11;
constexpr int viewNumber = 12;
constexpr int viewValueNull = 13;
constexpr int titleEmpty = 14;
constexpr int nameEmpty = 15;
constexpr int notANumber = 16;
constexpr int nameShared = 17;
constexpr int nameTooLong = 18;
constexpr int helpWithoutPage = 19;
constexpr int textTooLong = 20;

constexpr int accessElements = 21;
constexpr int accessRightEmpty = 22;
constexpr int accessNobody = 23;
constexpr int accessCompany = 24;

constexpr int listingEmpty = 30;
constexpr int listingFails = 31;
constexpr int listingWrites = 32;
constexpr int listingOtherView = 33;
constexpr int listingOtherCodes = 34;
constexpr int listingCodeTwice = 35;
constexpr int listingCodeNoNumber = 36;
constexpr int listingPlaceholder = 37;
constexpr int headerCount = 38;
constexpr int widthCount = 39;
constexpr int alignmentCount = 40;
constexpr int widthNoNumber = 41;
constexpr int alignmentNoCode = 42;
constexpr int headerCut = 43;
constexpr int listingLeavesOut = 44;

constexpr int noFields = 50;
constexpr int fieldKey = 51;
constexpr int fieldTwice = 52;
constexpr int fieldKind = 53;
constexpr int fieldWithoutKind = 54;
constexpr int lengthNotPositive = 55;
constexpr int lengthBeyondColumn = 56;
constexpr int requiredUnseen = 57;
constexpr int flagOnCheckBox = 58;
constexpr int flagValue = 59;
constexpr int companyValue = 60;
constexpr int mnemonicTwice = 61;
constexpr int mnemonicMissing = 62;
constexpr int captionEmpty = 63;
constexpr int fieldsOfNoView = 64;
constexpr int textsCut = 65;
constexpr int f2ViewMissing = 66;
constexpr int f2NoNumber = 67;
constexpr int f2OnYesNo = 68;
constexpr int yesNoStart = 69;
constexpr int sourceUnused = 70;
constexpr int captionCut = 71;

constexpr int comboSourceEmpty = 80;
constexpr int comboSourceNoSelect = 81;
constexpr int comboFails = 82;
constexpr int comboWrites = 83;
constexpr int comboColumns = 84;
constexpr int comboCodeNoNumber = 85;
constexpr int comboTextNull = 86;
constexpr int itemComma = 87;
constexpr int itemCodeNoNumber = 88;
constexpr int itemTextCut = 89;
constexpr int comboCodeTwice = 90;
constexpr int comboCodeUnknown = 91;
constexpr int requiredComboEmpty = 92;
constexpr int comboTextEmpty = 93;
constexpr int comboPlaceholder = 94;

constexpr int sequenceMissing = 100;
constexpr int sequenceBehind = 101;
constexpr int sequenceUnusable = 102;

constexpr int duplicatesFail = 110;
constexpr int duplicatesWrite = 111;
constexpr int duplicatesWithoutPlaceholder = 112;
constexpr int duplicatesWithoutCode = 113;
constexpr int duplicatesQuotes = 114;
constexpr int duplicatesHiddenField = 115;
constexpr int duplicatesOtherView = 116;

constexpr int ruleOtherCapitals = 120;
constexpr int ruleNameUnknown = 121;
constexpr int ruleEmpty = 122;
constexpr int ruleFails = 123;
constexpr int ruleWrites = 124;
constexpr int ruleToken = 125;
constexpr int ruleWithoutCode = 126;
constexpr int followUpIgnored = 127;
constexpr int followUpFails = 128;
constexpr int followUpWithoutCode = 129;
constexpr int ruleWithoutMessage = 130;
constexpr int followUpSeveralTables = 131;

}  // namespace catalogador::checks::kind
