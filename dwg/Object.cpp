#include "dwg/Object.h"

namespace dwg {

namespace {

// Begins where the object's bits do; empty when they are not all there.
std::string_view bodyAt(const Sections& sections, std::uint64_t offset, std::size_t& referenceBits)
{
    if (offset >= sections.objects.size())
        return {};
    const std::string_view bytes = sections.objects.substr(static_cast<std::size_t>(offset));
    Bits head(bytes);
    const std::size_t size = head.ms();
    referenceBits = sections.release >= 2010 ? static_cast<std::size_t>(head.umc()) : 0;
    const std::size_t start = head.position() / 8;
    return head.failed() || size > bytes.size() - start ? std::string_view() : bytes.substr(start, size);
}

unsigned typeOf(Bits& data, int release) { return release >= 2010 ? data.ot() : data.bs(); }

}  // namespace

unsigned Object::typeAt(const Sections& sections, std::uint64_t offset)
{
    std::size_t unused = 0;
    Bits data(bodyAt(sections, offset, unused));
    return typeOf(data, sections.release);
}

Object::Object(const Sections& sections, std::uint64_t offset, std::uint64_t handle)
    : m_release(sections.release), m_handle(handle)
{
    std::size_t referenceBits = 0;
    m_body = bodyAt(sections, offset, referenceBits);
    data = Bits(m_body);
    m_type = typeOf(data, m_release);
    if (m_release >= 2010)
        splitAt(m_body.size() * 8 - referenceBits);
    else if (m_release >= 2000)
        splitAt(data.rl());
    if (data.h().value != handle)
        data.fail();
    for (unsigned size = data.bs(); size != 0 && !failed(); size = data.bs()) {
        data.h();
        data.skip(std::size_t{size} * 8);
    }
}

void Object::splitAt(std::size_t end)
{
    const std::size_t at = data.position();
    const bool failed = data.failed();
    references = Bits(m_body, end, m_body.size() * 8);
    data = Bits(m_body, at, end);
    if (failed)
        data.fail();
    if (m_release < 2007 || end < 17 || data.failed())
        return;
    // The stream of texts ends before its size, which ends before the bit that says whether there is one.
    Bits there(m_body, end - 1, end);
    if (!there.b())
        return;
    std::size_t begin = end - 17;
    std::size_t size = Bits(m_body, begin, end).rs();
    if ((size & 0x8000) != 0 && begin >= 16) {
        begin -= 16;
        size = (size & 0x7FFF) | std::size_t{Bits(m_body, begin, end).rs()} << 15;
    }
    if (size > begin)
        data.fail();
    else
        m_strings = Bits(m_body, begin - size, begin);
}

void Object::readPreamble()
{
    if (m_release < 2000)
        splitAt(data.rl());
    readOwners(true);
}

void Object::readOwners(bool hasOwner)
{
    const std::uint32_t reactors = data.bl();
    const bool dictionary = m_release < 2004 || !data.b();
    if (m_release >= 2013)
        data.b();
    owner = hasOwner ? reference() : 0;
    skipReferences(reactors);
    if (dictionary)
        references.h();
}

void Object::readEntityPreamble()
{
    if (data.b())  // a picture of it
        data.skip(static_cast<std::size_t>(m_release >= 2010 ? data.bll() : data.rl()) * 8);
    if (m_release < 2000)
        splitAt(data.rl());
    readOwners(data.bb() == 0);
    const bool lineTypeByLayer = m_release < 2000 && data.b();
    const bool links = m_release < 2004 && !data.b();
    const unsigned colour = data.bs();
    if (m_release >= 2004) {
        if ((colour & 0xC000) == 0x8000)
            data.bl();
        if ((colour & 0x2000) != 0)
            data.bl();
    }
    data.bd();          // line type scale
    unsigned more = 0;  // references to line type, material, plot style, visual styles
    for (int i = m_release < 2000 ? 3 : m_release < 2007 ? 1 : 0; i < 3; ++i)
        more += data.bb() == 3;
    if (m_release >= 2007)
        data.rc();
    for (int i = 0; m_release >= 2010 && i < 3; ++i)
        more += data.b();
    invisible = (data.bs() & 1) != 0;
    if (m_release >= 2000)
        data.rc();  // line weight

    if (m_release < 2000) {
        layer = reference();
        skipReferences(lineTypeByLayer ? 0 : 1);
    }
    next = m_handle + 1;
    if (links) {
        references.h();
        next = reference();
    }
    if (m_release >= 2004 && (colour & 0x4000) != 0)
        references.h();
    if (m_release >= 2000)
        layer = reference();
    skipReferences(more);
}

std::string Object::text()
{
    Bits& from = m_release < 2007 ? data : m_strings;
    return from.text(from.bs(), m_release >= 2007);
}

std::uint64_t Object::reference()
{
    const auto [code, value] = references.h();
    if (code == 6 || code == 8)
        return code == 6 ? m_handle + 1 : m_handle - 1;
    return code == 0xA ? m_handle + value : code == 0xC ? m_handle - value : value;
}

void Object::skipReferences(std::uint32_t count)
{
    for (count = references.count(count, 8); count != 0; --count)
        references.h();
}

Point Object::point3()
{
    Point p;
    p.x = data.bd();
    p.y = data.bd();
    p.z = data.bd();
    return p;
}

double Object::thickness() { return m_release >= 2000 && data.b() ? 0.0 : data.bd(); }

Point Object::extrusion() { return m_release >= 2000 && data.b() ? Point{0.0, 0.0, 1.0} : point3(); }

}  // namespace dwg
