// The popup beside the caret of a document, which offers the elements, attributes and characters that the reference
// tree has.
#pragma once

#include <QFrame>
#include <QString>

namespace vellum {

class Document;
class EditSurface;
class PopupList;
struct PosInfo;
class Workbench;

class TagPopup final : public QFrame {
public:
    TagPopup(Workbench& bench, Document& document);

    PopupList* const cmbTags;
    PopupList* const cmbattr;  // attributes or characters

    // Shows what may come next in the tag whose "<" stands at the position `tagPos`, from 1; hides where nothing may.
    void ShowAttr(int tagPos);
    void ShowCharacters();
    void HideAttr();
    // Goes along with the caret and selects the entry that begins with the word before it.
    void Follow(const PosInfo& place);

    // Up, Down and Esc. True when the key is used up.
    bool TakeKey(int key);
    // Writes the selected entry, as Enter does. False when there is none to take.
    bool TakeChosen(const PosInfo& place);
    // Writes an element's name, or an attribute with its quotes, in place of the word before the caret.
    void InsertAttr(const QString& item);

    // What cmbattr holds is out of date; it is read from the tree again before it shows the next time.
    void ForgetAttributes();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowTags();
    void ShowAttributes(const QString& name);
    void ShowList(PopupList& list);
    [[nodiscard]] PopupList& ShownList() const;
    [[nodiscard]] bool ShowsCharacters() const;
    [[nodiscard]] QString GetStrAtt(const PosInfo& place) const;
    void SelectByWord(const PosInfo& place);
    void Take(const PopupList& list);
    void WriteTag(const QString& item);
    void WriteAttribute(const QString& item);
    void SelectWord();
    void PositionAttr();
    void FollowCaret();

    Workbench& bench_;
    Document& document_;
    EditSurface& surface_;
    QString strAtt;            // the partial word before the caret
    QString tagsOf_;           // the document type whose elements cmbTags holds
    QString attributesOf_;     // the element whose attributes cmbattr holds
    bool characters_ = false;  // cmbattr holds those instead
};

}  // namespace vellum
