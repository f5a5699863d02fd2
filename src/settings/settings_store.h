// The settings store: strings addressed by application key, section and key, in one file that only its owner can read.
#pragma once

#include <QObject>
#include <QString>
#include <QStringView>

#include <memory>

namespace vellum {

// The three parts of an address may be any texts and compare without case; they stay spelled as they were written
// first.
//
// A file that can't be understood is kept aside as settings.json.damaged, with a warning, and the store starts empty.
//
// What is no regular file (a folder, a pipe, a device, or a link to one) is neither read nor written nor replaced:
// values then live in memory until the program ends, or until a file stands there.
//
// Several running instances may share the file: a write takes the file's lock, takes over what others have written
// since, and replaces the file as a whole, so a killed process leaves either the old or the new one. Reads come from
// memory; changes by others are taken over when the file changes on disk.
class SettingsStore : public QObject {
    Q_OBJECT
public:
    explicit SettingsStore(const QString& path, QObject* parent = nullptr);
    ~SettingsStore() override;

    // $XDG_CONFIG_HOME/vellumcraft/settings.json
    [[nodiscard]] static QString DefaultPath();

    // What a person is to be told at the start: the settings file is no file. Empty when all is well.
    [[nodiscard]] QString Refusal() const;

    // The stored value, or `fallback` when there is none. Writes nothing.
    [[nodiscard]] QString Read(QStringView application, QStringView section, QStringView key,
                               const QString& fallback = {}) const;
    [[nodiscard]] bool Contains(QStringView application, QStringView section, QStringView key) const;

    // False when the file can't be written; the value then lives until the process ends, and every later write tries
    // again to store it. A value that is stored already costs no write. Within a batch the answer is always true.
    bool Write(QStringView application, QStringView section, QStringView key, const QString& value);

    // Removes a whole application key. False when there is none or the file can't be written.
    bool DeleteApplication(QStringView application);
    bool DeleteSection(QStringView application, QStringView section);

    // While one stands, writes gather in memory, where reads see them; the last one to go writes the file once.
    class Batch {
    public:
        explicit Batch(SettingsStore& store);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        SettingsStore& store_;
    };

signals:
    // Another instance has changed values, and they are taken over. Within a batch it is told at the end.
    void Changed();

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

}  // namespace vellum
