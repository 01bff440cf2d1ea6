// SPDX-License-Identifier: GPL-2.0
// A GPIO chip whose first eight lines are those of the parallel port at 378, where the bench sees them. At 37E it
// tells which of them are inputs. The ninth line is an input, high after every other six load pulses.
#include <linux/delay.h>
#include <linux/gpio/driver.h>
#include <linux/io.h>
#include <linux/module.h>
#include <linux/version.h>

static int slow; // microseconds that a change takes, as behind a slow bus
module_param(slow, int, 0);
static char *third = "GPIO5";
module_param(third, charp, 0);

static const char *names[] = { "GPIO17", "GPIO27", "GPIO22", "GPIO5", "GPIO24", "GPIO6", "GPIO7", "GPIO8", "GPIO23" };
static unsigned long levels, inputs = 0xFF;
static int pulses;

#if LINUX_VERSION_CODE >= KERNEL_VERSION(6, 17, 0)
#define SETS static int
#define DONE return 0
#else
#define SETS static void
#define DONE return
#endif

SETS setSeveral(struct gpio_chip *chip, unsigned long *mask, unsigned long *bits)
{
	unsigned long before = levels;

	if (slow)
		usleep_range(slow, slow);
	levels = (levels & ~*mask) | (*bits & *mask);
	if (~before & levels & 4)
		pulses++;
	outb(levels & 0xFF, 0x378);
	DONE;
}

SETS setOne(struct gpio_chip *chip, unsigned line, int value)
{
	unsigned long mask = BIT(line), bits = value ? mask : 0;

	setSeveral(chip, &mask, &bits);
	DONE;
}

static int get(struct gpio_chip *chip, unsigned line)
{
	return line == 8 ? pulses / 6 % 2 : levels >> line & 1;
}

static int direction(struct gpio_chip *chip, unsigned line)
{
	return line == 8 || inputs >> line & 1;
}

static int makeInput(struct gpio_chip *chip, unsigned line)
{
	if (!direction(chip, line))
		outb(inputs |= BIT(line), 0x37E);
	return 0;
}

static int makeOutput(struct gpio_chip *chip, unsigned line, int value)
{
	setOne(chip, line, value);
	if (direction(chip, line))
		outb(inputs &= ~BIT(line), 0x37E);
	return 0;
}

static struct gpio_chip chip = {
	.label = "bench", .owner = THIS_MODULE, .base = -1, .ngpio = ARRAY_SIZE(names), .names = names,
	.get = get, .set = setOne, .set_multiple = setSeveral, .get_direction = direction,
	.direction_input = makeInput, .direction_output = makeOutput,
};

static int __init begin(void)
{
	names[3] = third;
	chip.can_sleep = slow != 0;
	return gpiochip_add_data(&chip, NULL);
}

static void __exit end(void)
{
	gpiochip_remove(&chip);
}

module_init(begin);
module_exit(end);
MODULE_LICENSE("GPL");
