#include <CommandSystem/Escaper.h>

CS_BEGIN_NAMESPACE

Escaper::Escaper(QObject* parent) : QObject(parent) {}

Escaper::~Escaper() = default;

CS_END_NAMESPACE
