#include "library/prepare/Gs1Identifiers.h"

namespace Library {
namespace {

constexpr ApplicationIdentifier kIdentifiers[] = {
    {0, 0, 2, "N18c"},               // SSCC
    {1, 3, 2, "N14c"},               // GTIN, contained GTIN, made-to-order GTIN
    {10, 10, 2, "X..20"},            // batch
    {11, 13, 2, "N6d"},              // production, due, packaging date
    {15, 17, 2, "N6d"},              // best before, sell by, expiration date
    {20, 20, 2, "N2"},               // variant
    {21, 22, 2, "X..20"},            // serial, consumer product variant
    {235, 235, 3, "X..28"},          // third-party serial extension
    {240, 241, 3, "X..30"},          // additional, customer part number
    {242, 242, 3, "N..6"},           // made-to-order variation
    {243, 243, 3, "X..20"},          // packaging component
    {250, 251, 3, "X..30"},          // secondary serial, source entity
    {253, 253, 3, "N13c X..17?"},    // document type
    {254, 254, 3, "X..20"},          // location extension
    {255, 255, 3, "N13c N..12?"},    // coupon
    {30, 30, 2, "N..8"},             // variable count
    {3100, 3169, 4, "N6", 5},        // trade measures
    {3200, 3379, 4, "N6", 5},        // trade and logistic measures
    {3400, 3579, 4, "N6", 5},        // logistic measures
    {3600, 3699, 4, "N6", 5},        // logistic measures
    {37, 37, 2, "N..8"},             // count of items
    {3900, 3909, 4, "N..15"},        // amount payable
    {3910, 3919, 4, "N3 N..15"},     // amount payable with currency
    {3920, 3929, 4, "N..15"},        // amount of a variable measure item
    {3930, 3939, 4, "N3 N..15"},     // the same with currency
    {3940, 3943, 4, "N4"},           // percentage discount
    {3950, 3955, 4, "N6"},           // amount per unit
    {400, 401, 3, "X..30"},          // order number, GINC
    {402, 402, 3, "N17c"},           // GSIN
    {403, 403, 3, "X..30"},          // routing code
    {410, 417, 3, "N13c"},           // locations, parties
    {420, 420, 3, "X..20"},          // ship to postal code
    {421, 421, 3, "N3 X..9"},        // the same with country
    {422, 422, 3, "N3"},             // country of origin
    {423, 423, 3, "N3 N..12?"},      // countries of initial processing
    {424, 424, 3, "N3"},             // country of processing
    {425, 425, 3, "N3 N..12?"},      // countries of disassembly
    {426, 426, 3, "N3"},             // country of full process chain
    {427, 427, 3, "X..3"},           // subdivision of origin
    {4300, 4301, 4, "X..35"},        // ship to company, contact
    {4302, 4306, 4, "X..70"},        // ship to address
    {4307, 4307, 4, "X2"},           // ship to country
    {4308, 4308, 4, "X..30"},        // ship to telephone
    {4309, 4309, 4, "N20"},          // ship to position
    {4310, 4311, 4, "X..35"},        // return to company, contact
    {4312, 4316, 4, "X..70"},        // return to address
    {4317, 4317, 4, "X2"},           // return to country
    {4318, 4318, 4, "X..20"},        // return to postal code
    {4319, 4319, 4, "X..30"},        // return to telephone
    {4320, 4320, 4, "X..35"},        // service description
    {4321, 4323, 4, "N1"},           // dangerous goods, authority to leave, signature
    {4324, 4325, 4, "N6d N4"},       // not before, not after
    {4326, 4326, 4, "N6d"},          // release date
    {4330, 4333, 4, "N6 X..1?"},     // temperatures
    {7001, 7001, 4, "N13"},          // NATO stock number
    {7002, 7002, 4, "X..30"},        // meat cut
    {7003, 7003, 4, "N6d N4"},       // expiration date and time
    {7004, 7004, 4, "N..4"},         // active potency
    {7005, 7005, 4, "X..12"},        // catch area
    {7006, 7006, 4, "N6d"},          // first freeze date
    {7007, 7007, 4, "N6d N6d?"},     // harvest date or dates
    {7008, 7008, 4, "X..3"},         // species
    {7009, 7009, 4, "X..10"},        // fishing gear
    {7010, 7010, 4, "X..2"},         // production method
    {7011, 7011, 4, "N6d N4?"},      // test by date
    {7020, 7022, 4, "X..20"},        // refurbishment lot, status, revision
    {7023, 7023, 4, "X..30"},        // assembly
    {7030, 7039, 4, "N3 X..27"},     // processors
    {7040, 7040, 4, "N1 X3"},        // unique identification
    {710, 717, 3, "X..20"},          // national healthcare reimbursement numbers
    {7230, 7239, 4, "X2 X..28"},     // certification references
    {7240, 7240, 4, "X..20"},        // protocol
    {7241, 7241, 4, "N2"},           // AIDC media type
    {7242, 7242, 4, "X..25"},        // version control
    {7250, 7250, 4, "N8"},           // date of birth
    {7251, 7251, 4, "N12"},          // date and time of birth
    {7252, 7252, 4, "N1"},           // biological sex
    {7253, 7254, 4, "X..40"},        // names
    {7255, 7255, 4, "X..10"},        // suffix
    {7256, 7256, 4, "X..90"},        // full name
    {7257, 7257, 4, "X..70"},        // address
    {7258, 7258, 4, "X3"},           // birth sequence
    {7259, 7259, 4, "X..40"},        // baby of
    {8001, 8001, 4, "N14"},          // roll products
    {8002, 8002, 4, "X..20"},        // mobile telephone
    {8003, 8003, 4, "N14c X..16?"},  // returnable asset, its number filled by a zero in front
    {8004, 8004, 4, "X..30"},        // individual asset
    {8005, 8005, 4, "N6"},           // price per unit
    {8006, 8006, 4, "N14c N4"},      // piece of a trade item
    {8007, 8007, 4, "X..34"},        // IBAN
    {8008, 8008, 4, "N8 N2? N2?"},   // production date and time
    {8009, 8009, 4, "X..50"},        // sensor indicator
    {8010, 8010, 4, "Y..30"},        // component or part
    {8011, 8011, 4, "N..12"},        // its serial number
    {8012, 8012, 4, "X..20"},        // software version
    {8013, 8013, 4, "X..25"},        // global model number
    {8014, 8014, 4, "X..25"},        // custom-made device
    {8017, 8018, 4, "N18c"},         // service relations
    {8019, 8019, 4, "N..10"},        // service relation instance
    {8020, 8020, 4, "X..25"},        // payment slip
    {8026, 8026, 4, "N14c N4"},      // piece of a trade item in a logistic unit
    {8030, 8030, 4, "Z..90"},        // digital signature
    {8110, 8110, 4, "X..70"},        // coupon, North America
    {8111, 8111, 4, "N4"},           // loyalty points
    {8112, 8112, 4, "X..70"},        // positive offer file coupon
    {8200, 8200, 4, "X..70"},        // extended packaging URL
    {90, 90, 2, "X..30"},            // by agreement
    {91, 99, 2, "X..90"},            // company internal
};

// GS1 General Specifications, figure 7.8.5-2: by the first two digits.
struct Predefined {
  int first, last;
  int length;
};

constexpr Predefined kPredefined[] = {
    {0, 0, 20}, {1, 3, 16}, {4, 4, 18}, {11, 19, 8}, {20, 20, 4}, {31, 36, 10}, {41, 41, 16},
};

// The number in the first `digits` characters, -1: there are not as many digits.
int LeadingNumber(std::string_view text, int digits) {
  if (static_cast<int>(text.size()) < digits) return -1;
  int number = 0;
  for (const char character : text.substr(0, static_cast<std::size_t>(digits))) {
    if (character < '0' || character > '9') return -1;
    number = number * 10 + (character - '0');
  }
  return number;
}

}  // namespace

const ApplicationIdentifier* FindApplicationIdentifier(std::string_view text) {
  const int numbers[] = {LeadingNumber(text, 2), LeadingNumber(text, 3), LeadingNumber(text, 4)};
  for (const ApplicationIdentifier& identifier : kIdentifiers) {
    const int number = numbers[identifier.digits - 2];
    const bool inRange = number >= identifier.first && number <= identifier.last;
    if (inRange && number % 10 <= identifier.lastDigit) return &identifier;
  }
  return nullptr;
}

int PredefinedLength(std::string_view text) {
  const int number = LeadingNumber(text, 2);
  for (const Predefined& row : kPredefined) {
    if (number >= row.first && number <= row.last) return row.length;
  }
  return 0;
}

}  // namespace Library
