#pragma once

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <functional>

/// A project on a real disk, of a few files with known sizes.
///
///     boats/          barge.mesh (300)  Sail.mesh (20)
///     scripts/        arena_defs/quay.xml (50)  weir.lua (1500)
///     textures/       quay.png
///     notes.txt (5)
class SampleProject
{
public:
    /// `more` may add files.
    explicit SampleProject(const std::function<void(const SampleProject&)>& more = {})
    {
        write("boats/barge.mesh", 300);
        write("boats/Sail.mesh", 20);
        write("scripts/arena_defs/quay.xml", 50);
        write("scripts/weir.lua", 1500);
        write("notes.txt", 5);
        QDir(path()).mkpath("textures");
        QImage image(24, 16, QImage::Format_ARGB32);
        image.fill(0x80ff0000);
        image.save(filePath("textures/quay.png"));
        if (more)
            more(*this);
    }

    QString path() const { return m_folder.path(); }
    QString filePath(const QString& file) const { return m_folder.filePath(file); }

    void write(const QString& file, int bytes) const { write(file, QByteArray(bytes, 'x')); }
    void write(const QString& file, const QByteArray& bytes) const
    {
        QDir(path()).mkpath(QFileInfo(file).path());
        QFile out(filePath(file));
        out.open(QIODevice::WriteOnly);
        out.write(bytes);
    }

private:
    QTemporaryDir m_folder;
};
