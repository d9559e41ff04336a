// Zones go by the identifiers that every version of ICU knows ("Asia/Calcutta", "Europe/Kiev").
// Where two cities have a name, the one with more people has it, unless a comment says otherwise.

#include "answers/TimeZoneRows.h"

#include <algorithm>
#include <array>

namespace pello::TimeZoneRows {
namespace {

constexpr auto kCities = std::to_array<Cities>({
    // North America
    {"America/New_York",
     "=nyc=ny=new york city=manhattan=brooklyn|Washington=dc=washington dc|Boston|Philadelphia="
     "philly|Miami|Atlanta|Orlando|Tampa|Charlotte|Pittsburgh|Baltimore|Cleveland|Cincinnati|"
     "Columbus|Raleigh|Jacksonville|Newark|New Jersey|Massachusetts|Pennsylvania"},
    {"America/Chicago",
     "Houston|Dallas|Austin|San Antonio|Fort Worth|Minneapolis|St. Louis=saint louis|Kansas City|"
     "Milwaukee|Nashville|Memphis|New Orleans=nola|Oklahoma City|Omaha|Des Moines|Texas|Illinois"},
    {"America/Denver", "Salt Lake City=slc|Albuquerque|Santa Fe|Colorado Springs|Colorado|Utah"},
    {"America/Phoenix", "Tucson|Scottsdale|Arizona"},
    {"America/Los_Angeles",
     "=la|San Francisco=sf=san fran=bay area=silicon valley|San Diego|San Jose|Seattle|Portland|"
     "Las Vegas=vegas|Sacramento|Oakland|Palo Alto|Mountain View|Cupertino|Hollywood|California"},
    {"America/Anchorage", "Alaska|Fairbanks"},
    {"Pacific/Honolulu", "Hawaii|Maui|Waikiki"},
    {"America/Toronto", "Ottawa|Montreal|Quebec City=quebec|Hamilton|Mississauga|Ontario"},
    {"America/Winnipeg", "Manitoba"},
    {"America/Regina", "Saskatoon|Saskatchewan"},
    {"America/Edmonton", "Calgary|Alberta|Banff"},
    {"America/Vancouver", "British Columbia|Whistler"},
    {"America/Halifax", "Nova Scotia|Charlottetown"},
    {"America/St_Johns", "Newfoundland"},
    {"America/Mexico_City", "=cdmx|Guadalajara|Puebla"},
    {"America/Mazatlan", "Cabo San Lucas"},
    // Central America and the Caribbean. San José keeps its accent, for San Jose in California is
    // larger; Saint John's is spelt out, for St. John's in Newfoundland is.
    {"America/Guatemala", "Guatemala City"},
    {"America/El_Salvador", "San Salvador"},
    {"America/Costa_Rica", "San José"},
    {"America/Panama", "Panama City"},
    {"America/Belize", "Belize City|Belmopan"},
    {"America/Jamaica", "Kingston|Montego Bay"},
    {"America/Puerto_Rico", "San Juan"},
    {"America/Santo_Domingo", "Punta Cana"},
    {"America/Port_of_Spain", "Trinidad|Tobago"},
    {"America/Barbados", "Bridgetown"},
    {"America/St_Lucia", "Castries"},
    {"America/St_Vincent", "Kingstown"},
    {"America/Dominica", "Roseau"},
    {"America/St_Kitts", "Basseterre"},
    {"America/Antigua", "Saint John’s"},
    {"America/Grenada", "St. George’s=saint george’s"},
    {"America/Curacao", "Willemstad"},
    {"America/Aruba", "Oranjestad"},
    // South America
    {"America/Sao_Paulo",
     "=são paulo|Rio de Janeiro=rio|Brasília|Belo Horizonte|Curitiba|Porto Alegre|Florianópolis"},
    {"America/Bahia", "Salvador"},
    {"America/Buenos_Aires", "Rosario|La Plata"},
    {"America/Bogota", "Medellín|Cartagena"},
    {"America/Caracas", "Maracaibo"},
    {"America/Lima", "Cusco=cuzco|Arequipa"},
    {"America/La_Paz", "Sucre|Santa Cruz"},
    {"America/Santiago", "Valparaíso"},
    {"America/Guayaquil", "Quito"},
    {"America/Guyana", "Georgetown"},
    // Europe
    {"Europe/London",
     "=ldn|Edinburgh|Glasgow|Manchester|Birmingham|Liverpool|Leeds|Bristol|Oxford|Cambridge|"
     "Cardiff|Belfast|Sheffield|Nottingham|Brighton|England|Scotland|Wales|Northern Ireland"},
    {"Europe/Dublin", "Galway"},
    {"Europe/Lisbon", "Porto|Faro|Coimbra"},
    {"Atlantic/Azores", "Ponta Delgada"},
    {"Atlantic/Madeira", "Funchal"},
    {"Europe/Madrid",
     "Barcelona=bcn|Valencia|Seville=sevilla|Bilbao|Málaga|Zaragoza|Granada|Mallorca=majorca=palma "
     "de mallorca|Ibiza"},
    {"Atlantic/Canary", "Tenerife|Las Palmas|Gran Canaria|Canary Islands"},
    {"Europe/Paris",
     "Lyon|Marseille=marseilles|Toulouse|Bordeaux|Lille|Strasbourg|Nantes|Montpellier|Cannes|"
     "Grenoble|Rennes"},
    {"Europe/Brussels", "Antwerp=antwerpen|Ghent=gent|Bruges=brugge|Liège"},
    {"Europe/Amsterdam", "Rotterdam|The Hague=hague=den haag|Utrecht|Eindhoven|Groningen"},
    {"Europe/Berlin",
     "Munich=münchen=muenchen|Hamburg|Frankfurt=frankfurt am main|Cologne=köln=koeln|Stuttgart|"
     "Düsseldorf=duesseldorf|Leipzig|Dresden|Hanover=hannover|Nuremberg=nürnberg=nuernberg|Bremen|"
     "Dortmund|Bonn|Heidelberg|Karlsruhe|Mannheim|Freiburg|Potsdam|Kiel|Rostock"},
    {"Europe/Zurich",
     "=zuerich|Geneva=genève=genf|Bern=berne|Basel|Lausanne|Lucerne=luzern|Davos|Lugano"},
    {"Europe/Vienna", "Salzburg|Graz|Innsbruck|Linz"},
    {"Europe/Rome",
     "Milan=milano|Naples=napoli|Turin=torino|Florence=firenze|Venice=venezia|Bologna|Palermo|"
     "Verona|Genoa=genova|Sicily|Sardinia"},
    {"Europe/Vatican", "Vatican City"},
    {"Europe/Monaco", "Monte Carlo"},
    {"Europe/Andorra", "Andorra la Vella"},
    {"Europe/Malta", "Valletta"},
    {"Europe/Copenhagen", "=københavn|Aarhus|Odense"},
    {"Europe/Oslo", "Bergen|Trondheim|Stavanger"},
    {"Europe/Stockholm", "Gothenburg=göteborg|Malmö|Uppsala"},
    {"Europe/Helsinki", "Tampere|Espoo|Turku"},
    {"Europe/Warsaw", "=warszawa|Kraków=cracow|Gdańsk|Wrocław|Poznań|Łódź"},
    {"Europe/Prague", "=praha|Brno|Ostrava"},
    {"Europe/Zagreb", "Dubrovnik"},
    {"Europe/Belgrade", "Novi Sad|Pristina=prishtina"},
    {"Europe/Tirane", "Tirana"},
    {"Europe/Bucharest", "Cluj|Timișoara"},
    {"Europe/Sofia", "Plovdiv|Varna"},
    {"Europe/Athens", "Thessaloniki|Crete|Santorini"},
    {"Europe/Vilnius", "Kaunas"},
    {"Europe/Tallinn", "Tartu"},
    {"Europe/Kiev", "=kyiv=kiev|Lviv|Odesa=odessa|Kharkiv=kharkov|Dnipro"},
    {"Europe/Istanbul", "Ankara|Izmir|Antalya"},
    {"Europe/Moscow", "Saint Petersburg=st petersburg=petersburg|Sochi|Kazan"},
    // Africa
    {"Africa/Cairo", "Alexandria|Giza"},
    {"Africa/Casablanca", "Rabat|Marrakesh=marrakech|Tangier"},
    {"Africa/El_Aaiun", "Laayoune"},
    {"Africa/Lagos", "Abuja|Kano"},
    {"Africa/Accra", "Kumasi"},
    {"Africa/Abidjan", "Yamoussoukro"},
    {"Africa/Porto-Novo", "Cotonou"},
    {"Africa/Douala", "Yaoundé"},
    {"Africa/Nairobi", "Mombasa"},
    {"Africa/Dar_es_Salaam", "Dodoma|Zanzibar"},
    {"Africa/Bujumbura", "Gitega"},
    {"Africa/Blantyre", "Lilongwe"},
    {"Africa/Mbabane", "Lobamba"},
    {"Africa/Johannesburg", "=joburg|Cape Town|Durban|Pretoria|Bloemfontein"},
    {"Atlantic/Cape_Verde", "Praia"},
    {"Indian/Comoro", "Moroni"},
    {"Indian/Mauritius", "Port Louis"},
    // Asia
    {"Asia/Jerusalem", "Tel Aviv|Haifa"},
    {"Asia/Hebron", "Ramallah"},
    {"Asia/Dubai", "Abu Dhabi|Sharjah"},
    {"Asia/Riyadh", "Jeddah|Mecca|Medina"},
    {"Asia/Qatar", "Doha"},
    {"Asia/Bahrain", "Manama"},
    {"Asia/Kuwait", "Kuwait City"},
    {"Asia/Aden", "Sanaa"},
    {"Asia/Baghdad", "Basra|Erbil"},
    {"Asia/Tehran", "Isfahan|Shiraz"},
    {"Asia/Karachi", "Islamabad|Lahore"},
    {"Asia/Calcutta",
     "Mumbai=bombay|New Delhi|Delhi|Bangalore=bengaluru|Chennai=madras|Hyderabad|Pune|Ahmedabad|"
     "Jaipur|Goa"},
    {"Asia/Colombo", "Sri Jayawardenepura Kotte=kotte"},
    {"Asia/Dhaka", "Chittagong"},
    {"Indian/Maldives", "Malé"},
    {"Asia/Almaty", "Astana=nur-sultan"},
    {"Asia/Rangoon", "Naypyidaw|Mandalay"},
    {"Asia/Bangkok", "Phuket|Chiang Mai|Pattaya"},
    {"Asia/Saigon", "=hcmc|Hanoi=ha noi|Da Nang"},
    {"Asia/Kuala_Lumpur", "=kl|Putrajaya|Penang"},
    {"Asia/Jakarta", "Bandung|Surabaya"},
    {"Asia/Makassar", "Bali|Denpasar|Lombok"},
    {"Asia/Brunei", "Bandar Seri Begawan"},
    {"Asia/Manila", "Cebu|Quezon City|Davao"},
    {"Asia/Shanghai",
     "Beijing=peking|Shenzhen|Guangzhou=canton|Chengdu|Chongqing|Wuhan|Hangzhou|Nanjing|Tianjin|"
     "Xi’an|Suzhou"},
    {"Asia/Hong_Kong", "=hongkong|Kowloon"},
    {"Asia/Taipei", "Kaohsiung|Taichung"},
    {"Asia/Tokyo", "Osaka|Kyoto|Yokohama|Nagoya|Sapporo|Fukuoka|Kobe|Hiroshima|Okinawa"},
    {"Asia/Seoul", "Busan|Incheon|Daegu"},
    // Oceania. Victoria is the state: it has more people than the cities.
    {"Australia/Sydney", "Canberra|New South Wales"},
    {"Australia/Melbourne", "Victoria|Geelong"},
    {"Australia/Brisbane", "Queensland|Gold Coast|Cairns"},
    {"Australia/Darwin", "Alice Springs"},
    {"Australia/Hobart", "Tasmania"},
    {"Pacific/Auckland", "Wellington|Christchurch|Queenstown"},
    {"Pacific/Fiji", "Suva|Nadi"},
    {"Pacific/Tongatapu", "Nukuʻalofa"},
    {"Pacific/Efate", "Port Vila"},
    {"Pacific/Guadalcanal", "Honiara"},
    {"Pacific/Nauru", "Yaren"},
    {"Pacific/Palau", "Ngerulmud|Koror"},
    {"Pacific/Ponape", "Palikir"},
    {"Pacific/Tarawa", "South Tarawa"},
    {"Pacific/Tahiti", "Papeete|Bora Bora"},
    {"Pacific/Easter", "Easter Island"},
    {"Indian/Christmas", "Christmas Island"},
});

// Letters for standard time and for daylight-saving time both mean the time that clocks of the
// region show on that day: who types "3pm pst" in July means what people in California call 3 pm.
// That is why they are shown as "Pacific Time".
constexpr auto kAbbreviations = std::to_array<Abbreviation>({
    {"utc|zulu", "", "UTC"},
    {"gmt", "", "GMT"}, // the reference, not the time of London, which is another in summer
    {"et|est|edt|eastern", "America/New_York", "America_Eastern"}, // not Australia's
    {"ct|cst|cdt|central", "America/Chicago", "America_Central"},  // not China's or Cuba's, which
                                                                   // go by their city's name
    {"mt|mst|mdt|mountain", "America/Denver", "America_Mountain"}, // Arizona's goes by "phoenix"
    {"pt|pst|pdt|pacific", "America/Los_Angeles", "America_Pacific"}, // not the Philippines'
    {"akt|akst|akdt", "America/Anchorage", "Alaska"},
    {"hst|hast", "Pacific/Honolulu", "Hawaii_Aleutian"},
    {"ast|adt", "America/Halifax", "Atlantic"}, // in ICU's data; Arabia's is hardly typed
    {"nst|ndt", "America/St_Johns", "Newfoundland"},
    {"brt", "America/Sao_Paulo", "Brasilia"},
    {"art", "America/Buenos_Aires", "Argentina"},
    {"clt|clst", "America/Santiago", "Chile"},
    {"cot", "America/Bogota", "Colombia"},
    {"pet", "America/Lima", "Peru"},
    {"wet|west", "Europe/Lisbon", "Europe_Western"},
    {"bst", "Europe/London", ""}, // Britain in summer, which far more texts mean than Bangladesh
    {"cet|cest|met|mez|mesz", "Europe/Paris", "Europe_Central"},
    {"eet|eest", "Europe/Athens", "Europe_Eastern"},
    {"msk", "Europe/Moscow", "Moscow"},
    {"trt", "Europe/Istanbul", ""},
    {"wat", "Africa/Lagos", "Africa_Western"},
    {"cat", "Africa/Maputo", "Africa_Central"},
    {"eat", "Africa/Nairobi", "Africa_Eastern"},
    {"sast", "Africa/Johannesburg", "Africa_Southern"},
    {"idt", "Asia/Jerusalem", "Israel"},
    {"ist", "Asia/Calcutta", "India"}, // a hundred times as many people as in Israel or Ireland
    {"gst", "Asia/Dubai", "Gulf"},     // not the two of islands
    {"pkt", "Asia/Karachi", "Pakistan"},
    {"npt", "Asia/Katmandu", "Nepal"},
    {"ict", "Asia/Bangkok", "Indochina"},
    {"wib", "Asia/Jakarta", "Indonesia_Western"},
    {"wita", "Asia/Makassar", "Indonesia_Central"},
    {"wit", "Asia/Jayapura", "Indonesia_Eastern"},
    {"sgt", "Asia/Singapore", "Singapore"},
    {"hkt", "Asia/Hong_Kong", "Hong_Kong"},
    {"pht", "Asia/Manila", "Philippines"},
    {"jst", "Asia/Tokyo", "Japan"},
    {"kst", "Asia/Seoul", "Korea"},
    {"awst", "Australia/Perth", "Australia_Western"},
    {"acst|acdt", "Australia/Adelaide", "Australia_Central"},
    {"aest|aedt", "Australia/Sydney", "Australia_Eastern"},
    {"nzst|nzdt", "Pacific/Auckland", "New_Zealand"},
});

// Of a country with several zones one is named where nearly all of its people live by it.
constexpr auto kCountries = std::to_array<Country>({
    {"AE", "", "uae|emirates"},
    {"AR", "America/Buenos_Aires", ""}, // all of it has one time
    {"BA", "", "bosnia"},
    {"CI", "", "ivory coast"},
    {"CL", "America/Santiago", ""},
    {"CN", "Asia/Shanghai", ""}, // the official time of all of it
    {"CV", "", "cape verde"},
    {"CY", "Asia/Nicosia", ""},
    {"CZ", "", "czech republic"},
    {"DE", "Europe/Berlin", ""}, // Büsingen's differed long ago
    {"EC", "America/Guayaquil", ""},
    {"ES", "Europe/Madrid", ""},
    {"GB", "", "uk|great britain|britain"},
    {"KP", "", "north korea"},
    {"KR", "", "korea|south korea"},
    {"MH", "Pacific/Majuro", ""},
    {"MK", "", "macedonia"},
    {"MM", "", "burma"},
    {"MY", "Asia/Kuala_Lumpur", ""},
    {"NL", "", "holland"},
    {"NZ", "Pacific/Auckland", "nz"},
    {"PG", "Pacific/Port_Moresby", ""},
    {"PS", "Asia/Gaza", "palestine"},
    {"PT", "Europe/Lisbon", ""},
    {"SZ", "", "swaziland"},
    {"TL", "", "east timor"},
    {"TR", "", "turkey|türkiye"},
    {"UA", "Europe/Kiev", ""},
    {"UZ", "Asia/Tashkent", ""},
    {"VA", "", "vatican"},
});

constexpr auto kPlainWords = std::to_array<std::string_view>({
    "art",    "canary", "cat",  "center", "cot",      "eat",     "jersey", "male",
    "met",    "midway", "oral", "pet",    "resolute", "reunion", "troll",  "turkey",
    "virgin", "wake",   "wat",  "west",   "wet",      "wit",
});

} // namespace

std::span<const Cities> cities() {
    return kCities;
}

std::span<const Abbreviation> abbreviations() {
    return kAbbreviations;
}

std::span<const Country> countries() {
    return kCountries;
}

bool isPlainWord(std::string_view name) {
    return std::find(kPlainWords.begin(), kPlainWords.end(), name) != kPlainWords.end();
}

bool isMisleading(std::string_view zone) {
    // The one is a holiday in most languages, and so is the other; half of Australia is no place.
    constexpr std::array<std::string_view, 6> kZones = {"Pacific/Easter",  "Indian/Christmas",
                                                        "Australia/North", "Australia/South",
                                                        "Australia/West",  "Australia/ACT"};
    return std::find(kZones.begin(), kZones.end(), zone) != kZones.end();
}

} // namespace pello::TimeZoneRows
