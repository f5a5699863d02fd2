#include "tools/framework/field_layout.h"

#include "tests/tools/tool_fixture.h"

#include <QGroupBox>
#include <QLayout>
#include <QPushButton>
#include <QStackedWidget>

#include <algorithm>

namespace vellum::test {
namespace {

QLineEdit* Line(const QString& name) {
    auto* const line = new QLineEdit;
    line->setObjectName(name);
    return line;
}

QWidget* Large() {
    auto* const large = new QWidget;
    large->setObjectName("large");
    return large;
}

// A form that is laid out by the steps of a test.
class LaidOut : public QWidget, public FieldLayout {
public:
    explicit LaidOut(const std::function<void(LaidOut&)>& add) {
        Begin(this);
        add(*this);
        End();
        show();
    }

    using FieldLayout::AddField;
    using FieldLayout::AddFrame;
    using FieldLayout::AddGrowing;
    using FieldLayout::AddNote;
    using FieldLayout::AddStack;
    using FieldLayout::Beside;
    using FieldLayout::NextColumn;

    [[nodiscard]] QRect Place(const QString& name) const {
        const auto* const field = findChild<QWidget*>(name);
        return {field->mapTo(this, QPoint()), field->size()};
    }

    [[nodiscard]] const QLabel& Label(const QString& text) const {
        for (const QLabel* label : findChildren<QLabel*>()) {
            if (label->text() == text) return *label;
        }
        throw std::runtime_error("no label " + text.toStdString());
    }
};

TEST(FieldLayouts, SetRowsBelowEachOther) {
    const LaidOut form([](LaidOut& layout) {
        layout.AddField("First", Line("first"));
        layout.AddField("Second", Line("second"));
    });
    EXPECT_GT(form.Place("second").top(), form.Place("first").bottom());
    EXPECT_EQ(form.Place("second").left(), form.Place("first").left());
    EXPECT_EQ(form.Label("Second").buddy()->objectName(), "second");
    EXPECT_LT(form.Label("Second").x(), form.Place("second").left());
}

TEST(FieldLayouts, SetAFieldBesideTheOneBefore) {
    const LaidOut form([](LaidOut& layout) {
        layout.AddField("File", Line("file"));
        layout.Beside();
        auto* const find = new QPushButton("&Find");
        find->setObjectName("find");
        layout.AddField({}, find);
        layout.Beside();
        layout.AddField("of", Line("of"));
        layout.AddField("Below", Line("below"));
    });
    EXPECT_GT(form.Place("find").left(), form.Place("file").right());
    EXPECT_EQ(form.Place("find").center().y(), form.Place("file").center().y());
    EXPECT_GT(form.Place("of").left(), form.Place("find").right());
    EXPECT_GT(form.Place("below").top(), form.Place("of").bottom());
    EXPECT_EQ(form.findChild<QPushButton*>("find")->accessibleName(), "Find, File");
    EXPECT_EQ(form.Label("of").buddy()->objectName(), "of");
    EXPECT_EQ(form.findChild<QLineEdit*>("of")->accessibleName(), "");
}

TEST(FieldLayouts, NameATextAfterTheCheckThatItStandsBeside) {
    const LaidOut form([](LaidOut& layout) {
        layout.AddField({}, new QCheckBox("&With a Link"));
        layout.Beside();
        layout.AddField({}, Line("link"));
    });
    EXPECT_EQ(form.findChild<QLineEdit*>("link")->accessibleName(), "With a Link");
}

TEST(FieldLayouts, LeaveButtonsOfOneRowTheirOwnNames) {
    const LaidOut form([](LaidOut& layout) {
        layout.AddField({}, new QPushButton("Add"));
        layout.Beside();
        auto* const remove = new QPushButton("Remove");
        remove->setObjectName("remove");
        layout.AddField({}, remove);
    });
    EXPECT_EQ(form.findChild<QPushButton*>("remove")->accessibleName(), "");
}

TEST(FieldLayouts, SetNotesBelowARowAndTellThemWithIt) {
    const LaidOut form([](LaidOut& layout) {
        layout.AddField("Name", Line("name"));
        layout.AddNote("For the first");
        layout.AddNote("And the second");
    });
    EXPECT_EQ(form.findChild<QLineEdit*>("name")->accessibleDescription(), "For the first, And the second");
    EXPECT_GT(form.Label("For the first").y(), form.Place("name").bottom());
    EXPECT_EQ(form.Label("For the first").x(), form.Place("name").left());
    EXPECT_GT(form.Label("And the second").y(), form.Label("For the first").geometry().bottom());
}

TEST(FieldLayouts, GiveTheHeightToSpareToAFieldThatGrows) {
    LaidOut form([](LaidOut& layout) {
        layout.AddField("Above", Line("above"));
        layout.AddGrowing(Large(), "Large");
        layout.AddField("Below", Line("below"));
    });
    EXPECT_EQ(form.Label("Large").buddy()->objectName(), "large");
    const int height = form.Place("large").height();
    form.resize(form.width(), form.height() + 100);
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.Place("large").height() == height + 100; }));
    EXPECT_GT(form.Place("below").top(), form.Place("large").bottom());
}

TEST(FieldLayouts, GrowWithAFieldInsideAFrameOrPane) {
    for (const bool stacked : {false, true}) {
        LaidOut form([stacked](LaidOut& layout) {
            const auto fill = [&layout] { layout.AddGrowing(Large()); };
            if (stacked) {
                layout.AddStack("pane", {fill});
            } else {
                layout.AddFrame("Frame", fill);
            }
        });
        const int height = form.Place("large").height();
        form.resize(form.width(), form.height() + 100);
        EXPECT_TRUE(QTest::qWaitFor([&] { return form.Place("large").height() == height + 100; })) << stacked;
    }
}

TEST(FieldLayouts, KeepRowsAndFramesAtTheTopOfARoomyForm) {
    LaidOut form([](LaidOut& layout) {
        layout.AddField("First", Line("first"));
        layout.AddFrame("Frame", [&layout] { layout.AddField("Inside", Line("inside")); });
        layout.AddField("Last", Line("last"));
    });
    const int last = form.Place("last").top();
    form.resize(form.width(), form.height() + 300);
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.layout()->geometry().height() > 300; }));
    EXPECT_EQ(form.Place("last").top(), last);
}

TEST(FieldLayouts, KeepColumnsApart) {
    const LaidOut form([](LaidOut& layout) {
        layout.AddField("Left", Line("left"));
        layout.NextColumn();
        layout.AddField("Right", Line("right"));
    });
    EXPECT_GT(form.Label("Right").x() - form.Place("left").right(), 2 * form.fontMetrics().averageCharWidth());
    EXPECT_EQ(form.Place("right").top(), form.Place("left").top());
}

TEST(FieldLayouts, ShareTheWidthAmongColumnsByTheirStretch) {
    LaidOut form([](LaidOut& layout) {
        layout.AddField("Left", Line("left"));
        layout.NextColumn(0);
        layout.AddField({}, new QCheckBox("Narrow"));
    });
    const int left = form.Place("left").width();
    form.resize(form.width() + 200, form.height());
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.Place("left").width() == left + 200; }));
}

TEST(FieldLayouts, FrameWhatBelongsTogether) {
    QWidget* plain = nullptr;
    const LaidOut form([&plain](LaidOut& layout) {
        layout.AddFrame("Frame", [&layout] { layout.AddField("Inside", Line("inside")); });
        plain = layout.AddFrame({}, [&layout] { layout.AddField("Together", Line("together")); });
        layout.AddField("After", Line("after"));
    });
    const auto* const frame = qobject_cast<QGroupBox*>(form.findChild<QLineEdit*>("inside")->parentWidget());
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->title(), "Frame");
    EXPECT_EQ(form.findChild<QLineEdit*>("together")->parentWidget(), plain);
    EXPECT_FALSE(qobject_cast<QGroupBox*>(plain));
    EXPECT_EQ(form.findChild<QLineEdit*>("after")->parentWidget(), &form);
}

TEST(FieldLayouts, StackPanesInTheRoomOfTheLargest) {
    QStackedWidget* stack = nullptr;
    const LaidOut form([&stack](LaidOut& layout) {
        stack = layout.AddStack("pane", {[&layout] { layout.AddField("One", Line("one")); },
                                         [&layout] {
                                             layout.AddField("Two", Line("two"));
                                             layout.AddField("Three", Line("three"));
                                         }});
        layout.AddField("After", Line("after"));
    });
    EXPECT_EQ(stack->widget(0)->objectName(), "pane(0)");
    EXPECT_EQ(stack->widget(1)->objectName(), "pane(1)");
    EXPECT_TRUE(form.findChild<QLineEdit*>("one")->isVisible());
    EXPECT_FALSE(form.findChild<QLineEdit*>("two")->isVisible());
    const int after = form.Place("after").top();
    stack->setCurrentIndex(1);
    EXPECT_FALSE(form.findChild<QLineEdit*>("one")->isVisible());
    EXPECT_TRUE(form.findChild<QLineEdit*>("three")->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.Place("three").bottom() > form.Place("two").bottom(); }));
    EXPECT_LT(form.Place("three").bottom(), form.Place("after").top());
    EXPECT_EQ(form.Place("after").top(), after);
}

TEST(FieldLayouts, LabelsHaveRoomForLettersThatTheAccessKeySetsApart) {
    const LaidOut form([](LaidOut& layout) { layout.AddField("&Tall Avenue", Line("field")); });
    const QLabel& label = form.Label("&Tall Avenue");
    EXPECT_GT(label.width(), label.fontMetrics().size(Qt::TextShowMnemonic, label.text()).width());
}

TEST(FieldLayouts, MeasureFieldsInCharacters) {
    QLineEdit field;
    const int character = field.fontMetrics().averageCharWidth();
    SetFieldWidth(&field, 10);
    EXPECT_EQ(field.minimumWidth(), 10 * character);
    EXPECT_EQ(field.maximumWidth(), QWIDGETSIZE_MAX);
    SetFieldWidth(&field, 5, 8);
    EXPECT_EQ(field.minimumWidth(), 5 * character);
    EXPECT_EQ(field.maximumWidth(), 8 * character);
}

}  // namespace
}  // namespace vellum::test
