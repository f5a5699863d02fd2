#include "tests/reference/literal_dtd_reader.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace vellum::test {
namespace {

constexpr qsizetype maxLength = 1 << 22;
constexpr qsizetype maxWork = 1 << 26;
constexpr int maxExpansions = 10000;

// Positions count from 1; 0 is "not found". What makes no sense ends the reading.
qsizetype InStr(qsizetype start, const QString& text, const QString& what) {
    if (start < 1) throw ReadingFailed("start");
    return text.indexOf(what, start - 1) + 1;
}

qsizetype InStrRev(const QString& text, const QString& what, qsizetype start) {
    if (start < 1) throw ReadingFailed("start");
    return text.lastIndexOf(what, start - 1) + 1;
}

QString Mid(const QString& text, qsizetype start, qsizetype length) {
    if (start < 1 || length < 0) throw ReadingFailed("length");
    return text.mid(start - 1, length);
}

// Adding keeps the list sorted; equal entries stay in the order of addition.
void AddSorted(std::vector<QString>& list, const QString& entry) {
    const auto place = std::upper_bound(list.begin(), list.end(), entry, [](const QString& left, const QString& right) {
        return left.compare(right, Qt::CaseInsensitive) < 0;
    });
    list.insert(place, entry);
}

class Reading {
public:
    Reading(ReferenceTree& tree, int nodeIndex, const QString& text, int parentIndex, const CaptionHook& caption)
        : tree_(tree), nodeIndex_(nodeIndex), parentIndex_(parentIndex), caption_(caption), dtdText_(text) {
        dtdText_.replace("\r\n", "\n").replace('\r', '\n').replace("\n", "\r\n").replace('\t', ' ');
    }

    int Run() {
        AddDocumentType();
        CollectNames();
        for (const QString& entry : lstTags_) AddElement(entry.section('\t', 0, 0), entry.section('\t', 1));
        return nodeIndex_;
    }

private:
    void AddDocumentType() {
        QString docType = "!DOCTYPE";
        if (const auto p = InStr(1, dtdText_, "PUBLIC \"")) {
            docType += ' ' + Mid(dtdText_, p, InStr(p, dtdText_, "\r") - p);
        }
        if (const auto s = InStr(1, dtdText_, "SYSTEM \"")) {
            docType += ' ' + Mid(dtdText_, s + 6, InStr(s, dtdText_, "\r") - s - 6);
        }
        if (docType.endsWith('>')) docType.chop(1);
        if (const auto d = InStr(1, dtdText_, "<!DOCTYPE")) {
            if (const auto end = InStr(d, dtdText_, ">")) docType = Mid(dtdText_, d + 1, end - d - 1);
        }
        if (docType == "!DOCTYPE") return;
        Add(parentIndex_, docType + "      EMPTY");
        Count(1);
    }

    void CollectNames() {
        QString seen;
        qsizetype g = 1;
        for (qsizetype p = InStr(g, dtdText_, "<!ELEMENT "); p != 0; p = InStr(g, dtdText_, "<!ELEMENT ")) {
            g = InStr(p, dtdText_, ">");
            QString decl = Mid(dtdText_, p, g - p + 1);
            QString key;
            int expansions = 0;
            for (auto c = InStr(1, decl, "%"); c != 0; c = InStr(1, decl, "%")) {
                const QString ref = Mid(decl, c, InStr(c, decl, ";") - c + 1);
                if (c == 11 && expansions == 0) key = ref;
                const auto t = InStr(1, dtdText_, "<!ENTITY % " + ref.mid(1, ref.size() - 2));
                decl.replace(ref, ValueAt(t));
                Limit(decl, ++expansions);
            }
            auto b = InStr(11, decl, " ");
            const auto l = InStr(11, decl, "\n");
            if (l != 0 && l < b) b = l - 1;
            const QString name = Mid(decl, 11, b - 11);
            if (key.isEmpty()) key = name;
            if (!seen.contains("$$" + key + "$$")) AddSorted(lstTags_, name + '\t' + key);
            seen += "$$" + key + "$$";
        }
    }

    void AddElement(const QString& name, const QString& key) {
        auto p = InStr(1, dtdText_, "<!ELEMENT " + key + ' ');
        if (p == 0) p = InStr(1, dtdText_, "<!ELEMENT " + key + "\r\n");
        if (key == "guide" && p == 0 && caption_) caption_("ga");
        const auto end = InStr(p, dtdText_, ">");
        const bool empty = Mid(dtdText_, p, end - p + 2).toUpper().contains("EMPTY");
        Add(parentIndex_, empty ? name + "      EMPTY" : name);
        if (dtdText_.contains("<!ATTLIST " + key + ' ')) {
            dtdText_.replace("<!ATTLIST " + key + ' ', "<!ATTLIST " + key + "\r\n");
        }
        const auto a = InStr(1, dtdText_, "<!ATTLIST " + key + '\r');
        if (a != 0) attText_ = Mid(dtdText_, a, InStr(a, dtdText_, ">") - a + 1);
        attText_.replace('\t', ' ');
        ExpandAttText();
        CollectAttributes();
        int count = 0;
        if (a != 0) {
            for (const QString& attribute : lstAttrs_) {
                Add(nodeIndex_, attribute + '=');
                ++count;
            }
        }
        Count(count + 1);
    }

    void ExpandAttText() {
        int expansions = 0;
        for (auto c = InStr(1, attText_, "%"); c != 0; c = InStr(1, attText_, "%")) {
            const QString ref = Mid(attText_, c, InStr(c, attText_, ";") - c + 1);
            const auto t = InStr(1, dtdText_, "<!ENTITY % " + ref.mid(1, ref.size() - 2));
            QString value = "ErrorNotFound";
            if (t != 0) {
                value = ValueAt(t);
                if (value.contains('\n') && !value.startsWith('(')) value.prepend("\r\n");
            }
            attText_.replace(ref, value);
            Limit(attText_, ++expansions);
        }
    }

    void CollectAttributes() {
        lstAttrs_.clear();
        auto r = InStr(1, attText_, "\r");
        while (r != 0) {
            int skip = 0;
            for (int j = 1; j <= 100; ++j) {
                skip = j;
                const QString character = Mid(attText_, r + 2 + j, 1);
                if (character != " " && character != "\n" && character != "\r") break;
            }
            const auto s = r + 2 + skip;
            const auto n = InStr(s, attText_, " ");
            if (n == 0) break;
            const QString token = Mid(attText_, s, n - s);
            if (token != ">") {
                const auto o = InStrRev(attText_, "(", s);
                const bool inList = o != 0 && InStr(o, attText_, ")") > s && o < s;
                if (!inList) AddSorted(lstAttrs_, token);
            }
            r = InStr(n, attText_, "\r");
        }
    }

    QString ValueAt(qsizetype t) const {
        const auto end = InStr(t, dtdText_, ">");
        const auto q1 = InStr(t, dtdText_, "\"");
        const auto q2 = InStrRev(dtdText_, "\"", end);
        return Mid(dtdText_, q1 + 1, q2 - q1 - 1);
    }

    void Limit(const QString& text, int expansions) {
        work_ += text.size();
        if (text.size() > maxLength || work_ > maxWork || expansions > maxExpansions) throw ReadingFailed("endless");
    }

    // A node whose caption is written here and not made from its parts.
    void Add(int parent, const QString& caption) { tree_.AddNoder(parent, NodeKind::Text, caption); }

    void Count(int nodes) {
        nodeIndex_ += nodes;
        if (nodeIndex_ > greatestNodeIndex) throw ReadingFailed("overflow");
    }

    ReferenceTree& tree_;
    int nodeIndex_;
    const int parentIndex_;
    const CaptionHook& caption_;
    QString dtdText_;
    qsizetype work_ = 0;
    std::vector<QString> lstTags_;
    std::vector<QString> lstAttrs_;
    QString attText_;
};

}  // namespace

int LiteralAddDtD(ReferenceTree& tree, int& nodeIndex, const QString& dtdText, int parentIndex, const QString& title,
                  const CaptionHook& caption) {
    tree.AddRoot(NodeKind::DocumentType, title);
    nodeIndex = Reading(tree, nodeIndex, dtdText, parentIndex, caption).Run();
    return nodeIndex;
}

}  // namespace vellum::test
