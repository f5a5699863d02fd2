#include "reference/script_vocabulary.h"

#include <span>

namespace vellum {
namespace {

struct GroupText {
    const char* name;
    NodeKind kind;
    const char* items;  // with ", " between them
};

std::vector<VocabularyGroup> Groups(std::span<const GroupText> texts) {
    std::vector<VocabularyGroup> groups;
    for (const GroupText& text : texts) {
        const QStringList items = QString::fromLatin1(text.items).split(QLatin1String(", "));
        groups.push_back({QString::fromLatin1(text.name), text.kind, items});
    }
    return groups;
}

constexpr GroupText jScript[] = {
    {"Functions", NodeKind::Call,
     "GetObject, ScriptEngine, ScriptEngineBuildVersion, ScriptEngineMajorVersion, "
     "ScriptEngineMinorVersion"},
    {"Methods", NodeKind::Call,
     "abs, acos, anchor, asin, atan, atan2, atEnd, big, blink, bold, ceil, charAt, charCodeAt, "
     "compile, concat, cos, dimensions, escape, eval, exec, exp, fixed, floor, fontcolor, fontsize, "
     "fromCharCode, getDate, getDay, getFullYear, getHours, getItem, getMilliseconds, getMinutes, "
     "getMonth, getSeconds, getTimezoneOffset, getUTCDate, getUTCDay, getUTCFullYear, getUTCHours, "
     "getUTCMilliseconds, getUTCMinutes, getUTCMonth, getUTCSeconds, getVarDate, getYear, indexOf, "
     "isFinite, isNaN, italics, item, lastIndexOf, lbound, link, log, match, max, min, moveFirst, "
     "moveNext, parse, parseFloat, parseInt, pow, random, replace, reverse, round, search, setDate, "
     "setFullYear, setHours, setMilliseconds, setMinutes, setMonth, setSeconds, setTime, setUTCDate, "
     "setUTCFullYear, setUTCHours, setUTCMilliseconds, setUTCMinutes, setUTCMonth, setUTCSeconds, "
     "setYear, sin, slice, small, sort, split, sqrt, strike, sub, substr, substring, sup, tan, test, "
     "toArray, toGMTString, toLocaleString, toLowerCase, toString, toUpperCase, toUTCString, ubound, "
     "unescape, UTC, ValueOf"},
    {"Objects", NodeKind::Text,
     "ActiveXObject, Array, Boolean, Date, Dictionary, toArray, Enumerator, Error, FileSystemObject, "
     "Function, Global, Math, Number, Object, RegExp, RegularExpression, String, VBArray"},
    {"Properties", NodeKind::Text,
     "$1...$9, arguments, caller, constructor, description, E, index, Infinity, input, lastIndex, "
     "length, LN2, LN10, LOG2E, LOG10E, MAX, MIN, NaN, NEGATIVE_INFINITY, number, PI, "
     "POSITIVE_INFINITY, prototype, source, SQRT1_2, SQRT2"},
    {"Statements", NodeKind::Text,
     "break, catch, @cc_on, //, /* .. */, continue, do ... while, for, for ... in, function, @if, if "
     "... else, Labeled, return, @set, switch, this, throw, try, var, while, with"},
};

constexpr GroupText vbScript[] = {
    {"Events", NodeKind::Text, "Initialize, Terminate"},
    {"Functions", NodeKind::Call,
     "Abs, Array, Asc, Atn, CBool, CByte, CCur, CDate, CDbl, Chr, CInt, CLng, Cos, CreateObject, CSng, "
     "CStr, Date, DateAdd, DateDiff, DatePart, DateSerial, DateValue, Day, Eval, Exp, Filter, Fix, "
     "FormatCurrency, FormatDateTime, FormatNumber, FormatPercent, GetObject, GetRef, Hex, Hour, "
     "InputBox, InStr, InStrRev, Int, IsArray, IsDate, IsEmpty, IsNull, IsNumeric, IsObject, Join, "
     "LBound, LCase, Left, Len, LoadPicture, Log, LTrim, Mid, Minute, Month, MonthName, MsgBox, Now, "
     "Oct, Replace, RGB, Right, Rnd, Round, RTrim, ScriptEngine, ScriptEngineBuildVersion, "
     "ScriptEngineMajorVersion, ScriptEngineMinorVersion, Second, Sgn, Sin, Space, Split, Sqr, "
     "StrComp, String, StrReverse, Tan, Time, Timer, TimeSerial, TimeValue, Trim, TypeName, UBound, "
     "UCase, VarType, Weekday, WeekdayName, Year"},
    {"Methods", NodeKind::Call, "Clear, Execute, Raise, Replace, Test"},
    {"Objects", NodeKind::Text, "Class, Dictionary, Err, FileSystemObject, Match, Matches, RegExp"},
    {"Properties", NodeKind::Text,
     "Description, FirstIndex, Global, HelpContext, HelpFile, IgnoreCase, Length, Number, Pattern, "
     "Source, Value"},
    {"Statements", NodeKind::Text,
     "Call, Class, Const, Dim, Do ... Loop, Erase, Execute, Exit, For ... Next, For Each ... Next, "
     "Function, If ... Then ... Else, On Error, Option Explicit, Private, PropertyGet, PropertyLet, "
     "PropertySet, Public, Randomize, Redim, Rem, Select Case, Set, Sub, While ... Wend, With"},
};

}  // namespace

std::vector<VocabularyGroup> JScriptVocabulary() {
    return Groups(jScript);
}

std::vector<VocabularyGroup> VbScriptVocabulary() {
    return Groups(vbScript);
}

const QStringList& Emoticons() {
    static const QStringList emoticons{": - )", ": - (", ": - o", ": - O", ": - D", ": - |", "; - )",
                                       "; - (", "; - o", "; - O", "; - D", "; - |", ": o )", ": o (",
                                       ": o D", ": o |", "; o )", "; o (", "; o D", "; o |"};
    return emoticons;
}

}  // namespace vellum
