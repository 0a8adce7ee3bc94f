#include "text/Words.h"

#include <array>

namespace app {

namespace {

struct Translation {
  LPCWSTR english;
  LPCWSTR russian;
};

constexpr std::array<Translation, static_cast<std::size_t>(Word::COUNT)> WORDS = {{
    {TEXT(""), TEXT("")},
    // Titles and links
    {TEXT("Settings"), TEXT("Настройки")},
    {TEXT("Speed limits"), TEXT("Пределы скорости")},
    {TEXT("Trip read-outs"), TEXT("Показания")},
    {TEXT("Reset read-outs"), TEXT("Сброс показаний")},
    {TEXT("GPS receiver"), TEXT("Приёмник GPS")},
    {TEXT("Picture"), TEXT("Изображение")},
    {TEXT("Position by SMS"), TEXT("Положение по SMS")},
    {TEXT("About"), TEXT("О программе")},
    {TEXT("Quit"), TEXT("Выход")},
    // Settings
    {TEXT("Keep screen on"), TEXT("Не гасить экран")},
    {TEXT("Write track"), TEXT("Записывать путь")},
    {TEXT("Beep at standstill"), TEXT("Сигнал при остановке")},
    {TEXT("Light theme"), TEXT("Светлая тема")},
    // Speed limits
    {TEXT("Limit 1"), TEXT("Предел 1")},
    {TEXT("Limit 2"), TEXT("Предел 2")},
    {TEXT("Limit 3"), TEXT("Предел 3")},
    {TEXT("Limit"), TEXT("Предел")},
    {TEXT("Repeat up to"), TEXT("Сигнал до")},
    {TEXT("km/h"), TEXT("км/ч")},
    // Receiver
    {TEXT("GPS service"), TEXT("Служба GPS")},
    {TEXT("Serial port"), TEXT("Последовательный порт")},
    {TEXT("Port"), TEXT("Порт")},
    {TEXT("Baud rate"), TEXT("Скорость порта")},
    {TEXT("As the port has it"), TEXT("Как у порта")},
    {TEXT("No ports found"), TEXT("Портов не найдено")},
    {TEXT("Chosen when the program was started"), TEXT("Выбран при запуске программы")},
    // Picture
    {TEXT("Mirror"), TEXT("Зеркально")},
    {TEXT("Upside down"), TEXT("Вверх ногами")},
    {TEXT("Turn"), TEXT("Повернуть")},
    {TEXT("Invert colours"), TEXT("Обратить цвета")},
    {TEXT("From the next start"), TEXT("Со следующего запуска")},
    {TEXT("Standard colours"), TEXT("Обычные цвета")},
    {TEXT("Day colours"), TEXT("Дневные цвета")},
    {TEXT("Night colours"), TEXT("Ночные цвета")},
    // Reset
    {TEXT("Reset all"), TEXT("Сбросить всё")},
    {TEXT("Tap again"), TEXT("Нажмите ещё раз")},
    // SMS
    {TEXT("Recipient's number"), TEXT("Номер получателя")},
    {TEXT("none"), TEXT("нет")},
    {TEXT("Numbers:"), TEXT("Номеров:")},
    {TEXT("Send automatically"), TEXT("Отправлять автоматически")},
    {TEXT("Interval"), TEXT("Промежуток")},
    {TEXT("min"), TEXT("мин")},
    {TEXT("Only after moving"), TEXT("Только после движения")},
    {TEXT("Send now"), TEXT("Отправить сейчас")},
    {TEXT("sent"), TEXT("отправлено")},
    {TEXT("Text"), TEXT("Текст")},
    {TEXT("not available"), TEXT("недоступно")},
    // About
    {TEXT("Version"), TEXT("Версия")},
    {TEXT("Free software"), TEXT("Свободная программа")},
    {TEXT("MIT license"), TEXT("лицензия MIT")},
    // Waiting
    {TEXT("Waiting for the receiver"), TEXT("Ожидание приёмника")},
    {TEXT("No port is chosen"), TEXT("Порт не выбран")},
    {TEXT("The port is not there"), TEXT("Порта нет")},
    {TEXT("No data yet"), TEXT("Данных пока нет")},
    {TEXT("No position yet"), TEXT("Положения пока нет")},
    {TEXT("No data"), TEXT("Данных нет")},
    {TEXT("No position"), TEXT("Положения нет")},
    {TEXT("Show the views"), TEXT("Показать виды")},
}};

bool isRussianChosen = false;

}  // namespace

void SetRussian(bool isRussian) {
  isRussianChosen = isRussian;
}

WideString GetWord(Word word) {
  const Translation& entry = WORDS[static_cast<std::size_t>(word)];
  return isRussianChosen ? entry.russian : entry.english;
}

}  // namespace app
