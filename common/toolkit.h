#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#if QT_VERSION_MAJOR < 6
#include <QTextCodec>

#include <memory>
#else
#include <QStringDecoder>
#endif

// All that differs between Qt 5 and Qt 6 and cannot be written in one way for both.

/// The type of sizes and places in texts, bytes and lists: int in Qt 5, wider in Qt 6. Arithmetic with either
/// converts nothing.
using Size = decltype(QString().size());

/// Whether a document tree ends at a control character, even one inside of a value; that of Qt 5 reads on.
constexpr bool domEndsAtControls = QT_VERSION_MAJOR >= 6;

/// Whether a widget takes no font from its parent where one of the two has a style sheet.
constexpr bool sheetsStopFonts = QT_VERSION_MAJOR >= 6;

/// Has the toolkit draw at the screen's scale, with the "@2x" images there, as Qt 6 always does. To be called
/// before there is an application.
inline void drawatscreenscale()
{
#if QT_VERSION_MAJOR < 6
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
}

/// Decodes bytes of one encoding. Qt 6 has no QTextCodec, Qt 5 no QStringDecoder; both know the same names of
/// the same encodings where they are built with ICU.
/// What is not of the encoding becomes U+FFFD; half a character at the end is passed over, and so is a byte
/// order mark.
class Decoder
{
public:
    /// \a encoding: any of its names, in upper or lower case.
    explicit Decoder(const QByteArray& encoding);

    /// The first of the encoding's names, as in XML; empty when there is no such encoding.
    QString name() const;

    /// The text of \a bytes. To be called once, for an encoding that there is.
    QString decoded(const QByteArray& bytes);

private:
#if QT_VERSION_MAJOR < 6
    const QTextCodec* m_codec;
#else
    QStringDecoder m_decoder;
#endif
};

#if QT_VERSION_MAJOR < 6

inline Decoder::Decoder(const QByteArray& encoding) : m_codec(QTextCodec::codecForName(encoding)) {}

inline QString Decoder::name() const { return m_codec ? QString::fromLatin1(m_codec->name()) : QString(); }

inline QString Decoder::decoded(const QByteArray& bytes)
{
    // The codec itself would put in a sign for half a character at the end.
    return std::unique_ptr<QTextDecoder>(m_codec->makeDecoder())->toUnicode(bytes);
}

#else

inline Decoder::Decoder(const QByteArray& encoding) : m_decoder(encoding.constData()) {}

inline QString Decoder::name() const { return QString::fromLatin1(m_decoder.name()); }

inline QString Decoder::decoded(const QByteArray& bytes) { return m_decoder.decode(bytes); }

#endif
