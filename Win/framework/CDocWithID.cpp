#include "Win/framework/CDocWithID.h"

CDocWithID::CDocWithID() = default;

CDocWithID::~CDocWithID() = default;

const void* CDocWithID::GetID() {
    return nullptr;
}
