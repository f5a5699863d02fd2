// A shown document with a small reference tree, driven by real events.
#pragma once

#include "editor/popup_list.h"
#include "editor/tag_popup.h"
#include "surface/edit_surface.h"
#include "tests/support/test_workbench.h"
#include "tests/support/type_text.h"

#include <QTest>

#include <gtest/gtest.h>

namespace vellum::test {

// XHTML with a few elements as the active document type, entities, and another document type.
inline void FillReferences(ReferenceTree& tree) {
    tree.Clear();
    const int xhtml = tree.AddRoot(NodeKind::DocumentType, "XHTML1 Transitional");
    tree.SetBold(xhtml, true);
    tree.AddElement(xhtml, "!DOCTYPE html\r\n PUBLIC \"-//X//EN\"", true);
    const int anchor = tree.AddElement(xhtml, "a", false);
    for (const char* name : {"class", "href", "hreflang", "title"}) tree.AddNoder(anchor, NodeKind::Attribute, name);
    tree.AddNoder(tree.AddElement(xhtml, "br", true), NodeKind::Attribute, "id");
    tree.AddNoder(tree.AddElement(xhtml, "img", true), NodeKind::Attribute, "src");
    tree.AddElement(xhtml, "table", false);
    tree.AddElement(xhtml, "tbody", false);
    const int smil = tree.AddRoot(NodeKind::DocumentType, "SMIL 1.0");
    tree.AddElement(smil, "par", false);
    const int sets = tree.AddRoot(NodeKind::Text, "Character Sets");
    const int latin = tree.AddNoder(sets, NodeKind::CharacterSet, "Latin Characters");
    tree.AddCharacter(latin, "aacute", "x");
    tree.AddCharacter(latin, "nbsp", "y");
    tree.AddCharacter(latin, "Nu", "z");
    tree.AddRoot(NodeKind::Dates, "Date/Time");
}

class EditorFixture : public testing::Test {
protected:
    void SetUp() override {
        FillReferences(workbench.references);
        workbench.active = &document;
        document.resize(800, 600);
        document.Text1->setGeometry(0, 0, 800, 600);
        document.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&document));
        document.Text1->setFocus();
    }

    // Enter and Tab stand in `text` as "\n" and "\t".
    void Type(const QString& text) { TypeText(Surface(), text); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&Surface(), key, modifiers);
    }

    // The text becomes what stands here, the caret where the bar is; a second bar ends a selection.
    void Put(const QString& marked) {
        QString text = marked;
        text.replace("\n", "\r\n");
        const auto first = text.indexOf(u'|');
        text.remove(first, 1);
        const auto second = text.indexOf(u'|');
        if (second >= 0) text.remove(second, 1);
        Surface().SetText(text);
        workbench.Smartcolor();
        Surface().SetSelStart(static_cast<int>(first));
        if (second >= 0) Surface().SetSelLength(static_cast<int>(second - first));
    }
    // The same notation for what the surface holds now.
    [[nodiscard]] QString Shown() {
        QString text = Surface().Text();
        const int begin = Surface().SelStart();
        if (const int length = Surface().SelLength(); length > 0) text.insert(begin + length, u'|');
        text.insert(begin, u'|');
        return text.replace("\r\n", "\n");
    }

    // One letter a character: "." plain, "o" other tags, "a" links, "t" tables, "f" frames, "c" comments and regions,
    // "s" server blocks; bold in capitals, "B" for bold plain text.
    [[nodiscard]] QString Colours() {
        static const QMap<ColorNumber, QChar> letters{{0, u'.'},   {32768, u'o'},   {8388608, u'a'}, {8388736, u't'},
                                                      {192, u'f'}, {8421504, u'c'}, {6776628, u's'}};
        const QString text = Surface().Text();
        QString shown;
        for (int offset = 0; offset < text.size(); ++offset) {
            if (text.at(offset) == u'\r') continue;
            const QChar letter = text.at(offset) == u'\n' ? u'\n' : letters.value(ColorAt(offset), u'?');
            const bool bold = Surface().FormatAt(offset).bold;
            shown += !bold ? letter : letter == u'.' ? u'B' : letter.toUpper();
        }
        return shown;
    }

    [[nodiscard]] EditSurface& Surface() { return *document.Text1; }
    [[nodiscard]] ColorNumber ColorAt(int offset) {
        return Surface().FormatAt(offset).color.value_or(Surface().ForeColor());
    }
    void Set(const SettingKey& key, const QString& value) { workbench.Store(key, value); }

    [[nodiscard]] bool PopupShows(const QListWidget* list) const {
        return document.picAttr->isVisible() && list->isVisible();
    }
    static QStringList Entries(const QListWidget* list) {
        QStringList entries;
        for (int row = 0; row < list->count(); ++row) entries << list->item(row)->text();
        return entries;
    }
    static void ClickEntry(QListWidget* list, const QString& text) {
        const QList<QListWidgetItem*> found = list->findItems(text, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << text.toStdString();
        list->scrollToItem(found.front());
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found.front()).center());
    }

    TestWorkbench workbench;
    PlainDocument document{workbench};
};

}  // namespace vellum::test
