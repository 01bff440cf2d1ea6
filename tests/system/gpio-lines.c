// SPDX-License-Identifier: GPL-2.0
// A GPIO chip whose first eight lines are those of the parallel port at 378, where the bench sees them. At 37E it
// tells which of them are inputs. The ninth line, that of lock detect, is an input and low.
#include <linux/gpio/driver.h>
#include <linux/io.h>
#include <linux/module.h>

static const char *names[] = {"GPIO17", "GPIO27", "GPIO22", "GPIO5", "GPIO24", "GPIO6", "GPIO7", "GPIO8", "GPIO23"};
static unsigned long levels, inputs = 0x1FF;

static int setSeveral(struct gpio_chip *chip, unsigned long *mask, unsigned long *bits) {
  levels = (levels & ~*mask) | (*bits & *mask);
  outb(levels & 0xFF, 0x378);
  return 0;
}

static int get(struct gpio_chip *chip, unsigned line) { return levels >> line & 1; }
static int direction(struct gpio_chip *chip, unsigned line) { return inputs >> line & 1; }

static int makeInput(struct gpio_chip *chip, unsigned line) {
  if (!direction(chip, line)) outb((inputs |= BIT(line)) & 0xFF, 0x37E);
  return 0;
}

static int makeOutput(struct gpio_chip *chip, unsigned line, int value) {
  unsigned long mask = BIT(line), bits = value ? mask : 0;

  setSeveral(chip, &mask, &bits);
  if (direction(chip, line)) outb((inputs &= ~mask) & 0xFF, 0x37E);
  return 0;
}

// Kernels before 6.17 take no result of what sets lines; that there is one does no harm.
static struct gpio_chip chip = {
  .label = "bench", .owner = THIS_MODULE, .base = -1, .ngpio = ARRAY_SIZE(names), .names = names,
  .get = get, .set_multiple = (void *)setSeveral, .get_direction = direction,
  .direction_input = makeInput, .direction_output = makeOutput,
};

static int __init begin(void) { return gpiochip_add_data(&chip, NULL); }
static void __exit end(void) { gpiochip_remove(&chip); }

module_init(begin);
module_exit(end);
MODULE_LICENSE("GPL");
