// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/XmpGainMap.h"

#include <QLocale>
#include <QXmlStreamReader>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

const QString kHdrgmNs = u"http://ns.adobe.com/hdr-gain-map/1.0/"_s;
const QString kContainerNs = u"http://ns.google.com/photos/1.0/container/"_s;
const QString kItemNs = u"http://ns.google.com/photos/1.0/container/item/"_s;
const QString kRdfNs = u"http://www.w3.org/1999/02/22-rdf-syntax-ns#"_s;

void setItemField(ContainerItem &item, QStringView name, QStringView value)
{
    if (name == u"Semantic")
        item.semantic = value.toString();
    else if (name == u"Mime")
        item.mime = value.toString();
    else if (name == u"Length")
        item.length = value.trimmed().toLongLong();
    else if (name == u"Padding")
        item.padding = value.trimmed().toLongLong();
}

// Walks the packet once, collecting hdrgm properties and container items.
class XmpWalker
{
public:
    explicit XmpWalker(QByteArrayView xml)
        : m_reader(xml.toByteArray())
    {
    }

    XmpPacket run()
    {
        while (!m_reader.atEnd()) {
            switch (m_reader.readNext()) {
            case QXmlStreamReader::StartElement:
                startElement();
                break;
            case QXmlStreamReader::EndElement:
                endElement();
                break;
            case QXmlStreamReader::Characters:
                m_text += m_reader.text();
                break;
            default:
                break;
            }
        }
        m_packet.wellFormed = !m_reader.hasError();
        if (m_reader.hasError())
            m_packet.error = m_reader.errorString();
        return m_packet;
    }

private:
    void startElement()
    {
        ++m_depth;
        m_text.clear();
        const QStringView ns = m_reader.namespaceUri();
        const QStringView name = m_reader.name();
        const QXmlStreamAttributes attributes = m_reader.attributes();
        for (const QXmlStreamAttribute &a : attributes) {
            if (a.namespaceUri() == kHdrgmNs)
                m_packet.hdrgm.insert(a.name().toString(), { a.value().trimmed().toString() });
        }
        const bool isItem = ns == kContainerNs && name == u"Item";
        bool hasItemAttributes = false;
        for (const QXmlStreamAttribute &a : attributes)
            hasItemAttributes = hasItemAttributes || a.namespaceUri() == kItemNs;
        if ((isItem || hasItemAttributes) && m_itemDepth == 0) {
            m_item = ContainerItem();
            m_itemDepth = m_depth;
        }
        if (m_itemDepth != 0)
            for (const QXmlStreamAttribute &a : attributes)
                if (a.namespaceUri() == kItemNs)
                    setItemField(m_item, a.name(), a.value());
        if (ns == kHdrgmNs && m_property.isEmpty()) {
            m_property = name.toString();
            m_propertyDepth = m_depth;
            m_values.clear();
        }
    }

    void endElement()
    {
        const QStringView ns = m_reader.namespaceUri();
        const QStringView name = m_reader.name();
        const QString text = m_text.trimmed();
        if (!m_property.isEmpty() && ns == kRdfNs && name == u"li")
            m_values.append(text);
        if (m_itemDepth != 0 && ns == kItemNs)
            setItemField(m_item, name, text);
        if (!m_property.isEmpty() && m_depth == m_propertyDepth) {
            if (m_values.isEmpty())
                m_values.append(text);
            m_packet.hdrgm.insert(m_property, m_values);
            m_property.clear();
        }
        if (m_itemDepth == m_depth) {
            m_packet.directory.append(m_item);
            m_itemDepth = 0;
        }
        m_text.clear();
        --m_depth;
    }

    QXmlStreamReader m_reader;
    XmpPacket m_packet;
    int m_depth = 0;
    QString m_text;
    QString m_property;
    int m_propertyDepth = 0;
    QStringList m_values;
    ContainerItem m_item;
    int m_itemDepth = 0;
};

// One to three numbers of a property; false when present but unusable.
bool readNumbers(const XmpPacket &packet, const QString &name, int maxCount,
                 std::array<double, 3> &out, int &count, QString *error)
{
    const auto it = packet.hdrgm.constFind(name);
    if (it == packet.hdrgm.constEnd())
        return true; // absent: keep the defaults already in `out`
    const QStringList &values = *it;
    if (values.size() != 1 && !(values.size() == 3 && maxCount == 3)) {
        *error = u"hdrgm:%1 must hold 1 or 3 values"_s.arg(name);
        return false;
    }
    for (qsizetype i = 0; i < values.size(); ++i) {
        bool ok = false;
        const double v = values[i].toDouble(&ok);
        if (!ok || !std::isfinite(v)) {
            *error = u"hdrgm:%1 is not a finite number"_s.arg(name);
            return false;
        }
        out[i] = v;
    }
    if (values.size() == 1)
        out[1] = out[2] = out[0];
    count = std::max(count, int(values.size()));
    return true;
}

QString number(double v)
{
    return QString::number(v, 'g', QLocale::FloatingPointShortest);
}

} // namespace

XmpPacket parseXmp(QByteArrayView xml)
{
    while (!xml.isEmpty() && (xml.back() == '\0' || xml.back() == ' ' || xml.back() == '\n'))
        xml.chop(1);
    return XmpWalker(xml).run();
}

std::optional<GainMapMetadata> gainMapMetadataFromXmp(const XmpPacket &packet, QString *error)
{
    QString ignored;
    if (!error)
        error = &ignored;
    if (!packet.wellFormed) {
        *error = u"XMP not well-formed: "_s + packet.error;
        return std::nullopt;
    }
    if (!packet.hdrgm.contains(u"GainMapMax"_s) || !packet.hdrgm.contains(u"HDRCapacityMax"_s)) {
        *error = u"hdrgm:GainMapMax or hdrgm:HDRCapacityMax missing"_s;
        return std::nullopt;
    }
    GainMapMetadata m;
    m.source = GainMapMetadataSource::Xmp;
    m.version = packet.hdrgmVersion().isEmpty() ? u"1.0"_s : packet.hdrgmVersion();
    std::array<double, 3> mins { 0, 0, 0 }, maxs { 0, 0, 0 }, gammas { 1, 1, 1 };
    std::array<double, 3> offSdr { 1 / 64.0, 1 / 64.0, 1 / 64.0 }, offHdr = offSdr;
    std::array<double, 3> capMin { 0, 0, 0 }, capMax { 0, 0, 0 };
    int count = 1, scalar = 1;
    if (!readNumbers(packet, u"GainMapMin"_s, 3, mins, count, error)
        || !readNumbers(packet, u"GainMapMax"_s, 3, maxs, count, error)
        || !readNumbers(packet, u"Gamma"_s, 3, gammas, count, error)
        || !readNumbers(packet, u"OffsetSDR"_s, 3, offSdr, count, error)
        || !readNumbers(packet, u"OffsetHDR"_s, 3, offHdr, count, error)
        || !readNumbers(packet, u"HDRCapacityMin"_s, 1, capMin, scalar, error)
        || !readNumbers(packet, u"HDRCapacityMax"_s, 1, capMax, scalar, error))
        return std::nullopt;
    m.channelCount = count;
    for (int c = 0; c < 3; ++c)
        m.channels[c] = { mins[c], maxs[c], gammas[c], offSdr[c], offHdr[c] };
    if (count == 1)
        m.channels[1] = m.channels[2] = GainMapChannel();
    m.hdrCapacityMinLog2 = capMin[0];
    m.hdrCapacityMaxLog2 = capMax[0];
    const QString baseIsHdr = packet.hdrgm.value(u"BaseRenditionIsHDR"_s).value(0);
    m.baseIsHdr = baseIsHdr.compare(u"True"_s, Qt::CaseInsensitive) == 0;
    if (const QString why = m.validationError(); !why.isEmpty()) {
        *error = u"hdrgm values invalid: "_s + why;
        return std::nullopt;
    }
    return m;
}

QByteArray primaryXmp(qint64 gainMapLength)
{
    const QString xml = uR"(<x:xmpmeta xmlns:x="adobe:ns:meta/" x:xmptk="Orvanta">
 <rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
  <rdf:Description rdf:about=""
    xmlns:hdrgm="http://ns.adobe.com/hdr-gain-map/1.0/"
    xmlns:Container="http://ns.google.com/photos/1.0/container/"
    xmlns:Item="http://ns.google.com/photos/1.0/container/item/"
    hdrgm:Version="1.0">
   <Container:Directory>
    <rdf:Seq>
     <rdf:li rdf:parseType="Resource">
      <Container:Item Item:Semantic="Primary" Item:Mime="image/jpeg"/>
     </rdf:li>
     <rdf:li rdf:parseType="Resource">
      <Container:Item Item:Semantic="GainMap" Item:Mime="image/jpeg" Item:Length="%1"/>
     </rdf:li>
    </rdf:Seq>
   </Container:Directory>
  </rdf:Description>
 </rdf:RDF>
</x:xmpmeta>)"_s.arg(gainMapLength);
    return xml.toUtf8();
}

QByteArray gainMapXmp(const GainMapMetadata &m)
{
    using Field = double GainMapChannel::*;
    const std::pair<const char16_t *, Field> fields[] = {
        { u"GainMapMin", &GainMapChannel::minLog2 },  { u"GainMapMax", &GainMapChannel::maxLog2 },
        { u"Gamma", &GainMapChannel::gamma },         { u"OffsetSDR", &GainMapChannel::offsetSdr },
        { u"OffsetHDR", &GainMapChannel::offsetHdr },
    };
    QString attributes, elements;
    for (const auto &[name, field] : fields) {
        if (m.channelCount != 3) {
            attributes += u"\n    hdrgm:%1=\"%2\""_s.arg(name, number(m.channels[0].*field));
            continue;
        }
        QString items;
        for (int c = 0; c < 3; ++c)
            items += u"<rdf:li>%1</rdf:li>"_s.arg(number(m.channels[c].*field));
        elements += u"\n   <hdrgm:%1><rdf:Seq>%2</rdf:Seq></hdrgm:%1>"_s.arg(name, items);
    }
    const QString xml = uR"(<x:xmpmeta xmlns:x="adobe:ns:meta/" x:xmptk="Orvanta">
 <rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
  <rdf:Description rdf:about=""
    xmlns:hdrgm="http://ns.adobe.com/hdr-gain-map/1.0/"
    hdrgm:Version="1.0"
    hdrgm:BaseRenditionIsHDR="False"%1
    hdrgm:HDRCapacityMin="%2"
    hdrgm:HDRCapacityMax="%3">%4
  </rdf:Description>
 </rdf:RDF>
</x:xmpmeta>)"_s.arg(attributes, number(m.hdrCapacityMinLog2), number(m.hdrCapacityMaxLog2),
                     elements);
    return xml.toUtf8();
}

} // namespace orvanta
