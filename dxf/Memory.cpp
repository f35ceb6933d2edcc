#include "dxf/Memory.h"

#include "objectarx/acutads.h"
#include "objectarx/dbmain.h"

#include "dxf/ApiCalls.h"

#include <cstdlib>
#include <cstring>

namespace {

long s_live = 0;

void release(void* pMemory)
{
    if (pMemory != nullptr)
        --s_live;
    std::free(pMemory);
}

}  // namespace

long dxf::liveAllocations() { return s_live; }

dxf::HandedOut::HandedOut() { ++s_live; }

dxf::HandedOut::~HandedOut() { --s_live; }

Acad::ErrorStatus acutNewBuffer(char*& pOutput, std::size_t nBytes)
{
    pOutput = nullptr;
    if (dxf::callFails("acutNewBuffer"))
        return Acad::eOutOfMemory;
    pOutput = static_cast<char*>(std::malloc(nBytes == 0 ? 1 : nBytes));
    if (pOutput == nullptr)
        return Acad::eOutOfMemory;
    ++s_live;
    return Acad::eOk;
}

Acad::ErrorStatus acutNewString(const char* sInput, char*& pOutput)
{
    pOutput = nullptr;
    if (sInput == nullptr)
        return Acad::eInvalidInput;
    const std::size_t size = std::strlen(sInput) + 1;
    const Acad::ErrorStatus status = acutNewBuffer(pOutput, size);
    if (status == Acad::eOk)
        std::memcpy(pOutput, sInput, size);
    return status;
}

void acutDelString(char*& pString)
{
    release(pString);
    pString = nullptr;
}

void acutDelBuffer(char*& pBuffer)
{
    release(pBuffer);
    pBuffer = nullptr;
}

void acdbFree(void* pMemory) { release(pMemory); }
